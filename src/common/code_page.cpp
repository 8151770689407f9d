#include "common/code_page.h"

#include <algorithm>
#include <utility>

namespace vrix {

namespace {

constexpr unsigned western = 1252;
constexpr unsigned utf8 = 65001;

struct Chosen {
    unsigned number = western;
    LowerCaser lower = nullptr;
    bool oneByteEach = true;  // every character has one byte
};
Chosen chosen;

unsigned byteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

bool isWithin(unsigned byte, unsigned first, unsigned last) { return byte >= first && byte <= last; }

// Whether the byte begins a character of two bytes.
bool isLead(unsigned byte) {
    switch (chosen.number) {
        case 932: return isWithin(byte, 0x81, 0x9F) || isWithin(byte, 0xE0, 0xFC);
        case 936:
        case 949:
        case 950: return isWithin(byte, 0x81, 0xFE);
        case 1361: return isWithin(byte, 0x84, 0xD3) || isWithin(byte, 0xD8, 0xDE) || isWithin(byte, 0xE0, 0xF9);
        default: return false;
    }
}

// How many bytes a character of UTF-8 has, by its first one.
std::size_t utf8Size(unsigned first) {
    if (isWithin(first, 0xC2, 0xDF)) return 2;
    if (isWithin(first, 0xE0, 0xEF)) return 3;
    return isWithin(first, 0xF0, 0xF4) ? 4 : 1;
}

bool isContinued(std::string_view text, std::size_t at, std::size_t size) {
    if (text.size() - at < size) return false;
    const auto rest = text.substr(at + 1, size - 1);
    return std::all_of(rest.begin(), rest.end(),
                       [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u; });
}

// The small letter of a letter that has one byte.
char lowerByte(char c, unsigned page) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) return isWithin(byte, 'A', 'Z') ? static_cast<char>(byte + 0x20) : c;
    if (page != western) return c;
    if (isWithin(byte, 0xC0, 0xDE) && byte != 0xD7) return static_cast<char>(byte + 0x20);  // D7 is no letter
    switch (byte) {
        case 0x8A:
        case 0x8C:
        case 0x8E: return static_cast<char>(byte + 0x10);
        case 0x9F: return '\xFF';
        default: return c;
    }
}

}  // namespace

void useCodePage(unsigned number, LowerCaser lower) {
    chosen = {number, lower, false};
    chosen.oneByteEach = number != utf8 && !isLead(0x90);
}

unsigned codePage() { return chosen.number; }

std::size_t characterSize(std::string_view text, std::size_t at) {
    if (chosen.number == utf8) {
        const std::size_t size = utf8Size(byteAt(text, at));
        return isContinued(text, at, size) ? size : 1;
    }
    return isLead(byteAt(text, at)) && at + 1 < text.size() && text[at + 1] != '\0' ? 2 : 1;
}

std::size_t characterCount(std::string_view text) {
    if (chosen.oneByteEach) return text.size();
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) ++count;
    return count;
}

std::size_t characterStart(std::string_view text, std::size_t index) {
    std::size_t at = 0;
    while (index-- > 0 && at < text.size()) at += characterSize(text, at);
    return at;
}

std::size_t findCharacter(std::string_view text, char sign, std::size_t from) {
    if (chosen.oneByteEach) return text.find(sign, from);
    for (std::size_t at = from; at < text.size(); at += characterSize(text, at)) {
        if (text[at] == sign) return at;
    }
    return std::string_view::npos;
}

std::size_t findLastCharacter(std::string_view text, char sign) {
    std::size_t last = std::string_view::npos;
    for (std::size_t at = 0; (at = findCharacter(text, sign, at)) != std::string_view::npos; ++at) last = at;
    return last;
}

std::string lowerCase(std::string text) {
    if (chosen.lower != nullptr) return chosen.lower(std::move(text));
    const Chosen page = chosen;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = page.oneByteEach ? 1 : characterSize(text, at);
        if (size == 1) text[at] = lowerByte(text[at], page.number);
        at += size;
    }
    return text;
}

std::string wholeCharacters(std::string text) {
    if (chosen.oneByteEach) return text;
    for (std::size_t at = 0, size = 0; at < text.size(); at += size) {
        size = characterSize(text, at);
        const bool isPart = chosen.number == utf8 ? byteAt(text, at) >= 0x80 : isLead(byteAt(text, at));
        if (size == 1 && isPart) text[at] = '?';
    }
    return text;
}

}  // namespace vrix
