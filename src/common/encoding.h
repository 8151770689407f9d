#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vrix {

// Converts between a code page and UTF-8.
class Encoding {
public:
    virtual ~Encoding() = default;

    // Converts as the platform's narrow calls do: a character that the target lacks becomes a best-fit or a replacement
    // character.
    virtual std::string decode(std::string_view bytes) const = 0;
    virtual std::string encode(std::string_view utf8) const = 0;

    // The same if converting back gives the input; otherwise nothing.
    std::optional<std::string> toUtf8(std::string_view bytes) const {
        std::string text = decode(bytes);
        return encode(text) == bytes ? std::optional(std::move(text)) : std::nullopt;
    }
    std::optional<std::string> fromUtf8(std::string_view utf8) const {
        std::string bytes = encode(utf8);
        return decode(bytes) == utf8 ? std::optional(std::move(bytes)) : std::nullopt;
    }
};

// The code page 1252. Its five undefined bytes decode to control characters.
const Encoding& westernEncoding();

}  // namespace vrix
