#include "common/utf8.h"

namespace vrix {

namespace {

unsigned byteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

// How many bytes a character has by its first one; 0 where none begins so.
std::size_t sizeBy(unsigned first) {
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4) return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// Lowercase of the letters of code page 1252, for a system that sets no folder.
char32_t foldWestern(char32_t letter) {
    if (letter >= 0xC0 && letter <= 0xDE && letter != 0xD7) return letter + 0x20;  // D7 is no letter
    if (letter == 0x0152 || letter == 0x0160 || letter == 0x017D) return letter + 1;
    return letter == 0x0178 ? 0xFF : letter;
}

LetterFolder folder = &foldWestern;

char32_t folded(char32_t letter) {
    if (letter < 0x80) return letter >= 'A' && letter <= 'Z' ? letter + 0x20 : letter;
    return letter < 0x10000 ? folder(letter) : letter;
}

constexpr char32_t replacement = 0xFFFD;

}  // namespace

CodePoint codePointAt(std::string_view text, std::size_t at) {
    constexpr CodePoint none{CodePoint::none, 1};
    const unsigned first = byteAt(text, at);
    const std::size_t size = sizeBy(first);
    if (size == 1) return {first, 1};
    if (size == 0 || text.size() - at < size) return none;
    char32_t number = first & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        const unsigned byte = byteAt(text, at + i);
        if ((byte & 0xC0u) != 0x80u) return none;
        number = number << 6 | (byte & 0x3Fu);
    }
    const bool isTooLong = (size == 3 && number < 0x800) || (size == 4 && number < 0x10000);
    return isTooLong || number > 0x10FFFF ? none : CodePoint{number, size};
}

void append(std::string& text, char32_t codePoint) {
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    const auto tail = [&](unsigned shift) { add(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) return add(codePoint);
    if (codePoint < 0x800) return add(0xC0 | codePoint >> 6), tail(0);
    if (codePoint < 0x10000) return add(0xE0 | codePoint >> 12), tail(6), tail(0);
    add(0xF0 | codePoint >> 18), tail(12), tail(6), tail(0);
}

std::string fromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char32_t unit = text[at];
        const char32_t next = at + 1 < text.size() ? text[at + 1] : 0;
        const bool isPair = unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000;
        append(result, isPair ? 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00) : unit);
        at += isPair;
    }
    return result;
}

std::u16string toUtf16(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto [found, size] = codePointAt(text, at);
        const char32_t number = found == CodePoint::none ? replacement : found;
        at += size;
        if (number < 0x10000) {
            result += static_cast<char16_t>(number);
        } else {
            result += static_cast<char16_t>(0xD800 + ((number - 0x10000) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((number - 0x10000) & 0x3FF));
        }
    }
    return result;
}

std::size_t utf16Size(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto [number, size] = codePointAt(text, at);
        units += size == 4 ? 2 : 1;
        at += size;
    }
    return units;
}

bool isWhole(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto [number, size] = codePointAt(text, at);
        if (number == CodePoint::none || isHalf(number)) return false;
        at += size;
    }
    return true;
}

void useLetterFolder(LetterFolder chosen) { folder = chosen == nullptr ? &foldWestern : chosen; }

std::string foldedName(std::string_view name) {
    std::string result;
    result.reserve(name.size());
    for (std::size_t at = 0; at < name.size();) {
        const auto byte = static_cast<unsigned char>(name[at]);
        const auto [number, size] = byte < 0x80 ? CodePoint{byte, 1} : codePointAt(name, at);
        if (number < 0x80 || number == CodePoint::none) {
            result += number == CodePoint::none ? name[at] : static_cast<char>(folded(number));
        } else {
            append(result, folded(number));
        }
        at += size;
    }
    return result;
}

}  // namespace vrix
