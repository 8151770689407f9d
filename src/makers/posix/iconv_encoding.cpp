#include "makers/posix/iconv_encoding.h"

#include <iconv.h>

#include <cerrno>
#include <utility>

namespace vrix {

namespace {

// A converter of the C library. Null where it does not know one of the two.
class Converter {
public:
    Converter(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str())) {}
    ~Converter() {
        if (isOpen()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    std::optional<std::string> convert(std::string_view text) const {
        std::string in(text);
        std::string out(4 * in.size() + 1, '\0');
        char* from = in.data();
        char* to = out.data();
        std::size_t left = in.size();
        std::size_t room = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        // A result above 0 counts characters that were replaced by similar ones.
        if (iconv(handle_, &from, &left, &to, &room) != 0 || left != 0) return std::nullopt;
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
    std::optional<std::string> toUtf8(std::string_view text) const override { return toUtf8_.convert(text); }
    std::optional<std::string> fromUtf8(std::string_view text) const override { return fromUtf8_.convert(text); }

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
