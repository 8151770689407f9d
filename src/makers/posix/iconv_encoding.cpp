#include "makers/posix/iconv_encoding.h"

#include <iconv.h>

#include <utility>

#include "common/utf8.h"

namespace vrix {

namespace {

constexpr std::string_view lost = "\xEF\xBF\xBD";  // U+FFFD

struct Close {
    void operator()(void* converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<void, Close>;

// A converter of the C library. Null where it does not know one of the two.
Converter converter(const std::string& to, const std::string& from) {
    const iconv_t opened = iconv_open(to.c_str(), from.c_str());
    return Converter(opened == reinterpret_cast<iconv_t>(-1) ? nullptr : opened);
}

// Replaces what cannot be converted by the replacement character.
std::string convert(const Converter& converter, std::string_view text, std::string_view sign) {
    std::string in(text);
    std::string out(4 * in.size() + 1, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t left = in.size();
    std::size_t room = out.size();
    iconv(converter.get(), nullptr, nullptr, nullptr, nullptr);
    while (iconv(converter.get(), &from, &left, &to, &room) == static_cast<std::size_t>(-1) && left > 0) {
        const std::size_t bad = sign == lost ? 1 : codePointAt(text, text.size() - left).size;
        from += bad;
        left -= bad;
        to += sign.copy(to, room);
        room -= sign.size();
    }
    out.resize(out.size() - room);
    return out;
}

class IconvEncoding final : public Encoding {
public:
    IconvEncoding(Converter toUtf8, Converter fromUtf8) : toUtf8_(std::move(toUtf8)), fromUtf8_(std::move(fromUtf8)) {}
    std::string decode(std::string_view bytes) const override { return convert(toUtf8_, bytes, lost); }
    std::string encode(std::string_view utf8) const override { return convert(fromUtf8_, utf8, "?"); }

private:
    Converter toUtf8_;
    Converter fromUtf8_;
};

}  // namespace

std::unique_ptr<Encoding> iconvEncoding(unsigned codePage) {
    constexpr unsigned utf8 = 65001;
    const std::string name = codePage == utf8 ? "UTF-8" : "CP" + std::to_string(codePage);
    auto toUtf8 = converter("UTF-8", name);
    auto fromUtf8 = converter(name, "UTF-8");
    if (!toUtf8 || !fromUtf8) return nullptr;
    return std::make_unique<IconvEncoding>(std::move(toUtf8), std::move(fromUtf8));
}

}  // namespace vrix
