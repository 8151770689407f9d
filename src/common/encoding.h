#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vrix {

// A code page, against UTF-8.
class Encoding {
public:
    virtual ~Encoding() = default;

    // As the platform's narrow calls turn texts: what the other side lacks comes as its likeness or as a sign in its
    // place.
    virtual std::string decode(std::string_view bytes) const = 0;
    virtual std::string encode(std::string_view utf8) const = 0;

    // The same if it leads back; nothing else.
    std::optional<std::string> toUtf8(std::string_view bytes) const {
        std::string text = decode(bytes);
        return encode(text) == bytes ? std::optional(std::move(text)) : std::nullopt;
    }
    std::optional<std::string> fromUtf8(std::string_view utf8) const {
        std::string bytes = encode(utf8);
        return decode(bytes) == utf8 ? std::optional(std::move(bytes)) : std::nullopt;
    }
};

// The code page 1252. Its five bytes without a character stand for control characters.
const Encoding& westernEncoding();

}  // namespace vrix
