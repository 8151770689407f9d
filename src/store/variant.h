#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vrix {

// What a registry value is read as and written from: nothing, text, a number, or bytes.
using Variant = std::variant<std::monostate, std::string, std::int16_t, std::int32_t, std::vector<std::uint8_t>>;

// The value as text: numbers in decimal, bytes as they stand, nothing as empty text.
std::string textOf(Variant value);

// Whether a text is stored as expandable: two percent signs that enclose at least one character.
bool isExpandable(const std::string& text);

}  // namespace vrix
