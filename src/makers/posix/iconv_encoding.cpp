#include "makers/posix/iconv_encoding.h"

#include <iconv.h>

#include "common/fixed.h"
#include "common/utf8.h"

namespace vrix {

namespace {

constexpr std::string_view lost = "\xEF\xBF\xBD";  // U+FFFD

// A converter of the C library. Null where it does not know one of the two.
class Converter : Fixed {
public:
    Converter(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str())) {}
    ~Converter() {
        if (isOpen()) iconv_close(handle_);
    }

    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // Puts the sign in the place of what cannot be turned.
    std::string convert(std::string_view text, std::string_view sign) const {
        std::string in(text);
        std::string out(4 * in.size() + 1, '\0');
        char* from = in.data();
        char* to = out.data();
        std::size_t left = in.size();
        std::size_t room = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        while (iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1) && left > 0) {
            const std::size_t bad = sign == lost ? 1 : codePointAt(text, text.size() - left).size;
            from += bad;
            left -= bad;
            to += sign.copy(to, room);
            room -= sign.size();
        }
        out.resize(out.size() - room);
        return out;
    }

private:
    iconv_t handle_;
};

class IconvEncoding final : public Encoding {
public:
    explicit IconvEncoding(const std::string& name) : toUtf8_("UTF-8", name), fromUtf8_(name, "UTF-8") {}
    bool isOpen() const { return toUtf8_.isOpen() && fromUtf8_.isOpen(); }
    std::string decode(std::string_view bytes) const override { return toUtf8_.convert(bytes, lost); }
    std::string encode(std::string_view utf8) const override { return fromUtf8_.convert(utf8, "?"); }

private:
    Converter toUtf8_;
    Converter fromUtf8_;
};

}  // namespace

std::unique_ptr<Encoding> iconvEncoding(unsigned codePage) {
    constexpr unsigned utf8 = 65001;
    auto encoding = std::make_unique<IconvEncoding>(codePage == utf8 ? "UTF-8" : "CP" + std::to_string(codePage));
    if (!encoding->isOpen()) return nullptr;
    return encoding;
}

}  // namespace vrix
