#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vrix {

// The code page in which the store keeps its texts. Nothing is ever replaced or guessed: a text that has no exact
// counterpart gives no answer.
class Encoding {
public:
    virtual ~Encoding() = default;

    // The text of the code page as UTF-8; nothing where a byte stands for no character.
    virtual std::optional<std::string> toUtf8(std::string_view text) const = 0;
    // The UTF-8 text in the code page; nothing where it is no UTF-8, or where the code page lacks a character.
    virtual std::optional<std::string> fromUtf8(std::string_view text) const = 0;
};

}  // namespace vrix
