#include "common/code_page.h"

#include "common/utf8.h"

namespace vrix {

namespace {

constexpr unsigned western = 1252;
constexpr unsigned utf8 = 65001;

struct Chosen {
    unsigned number = western;
    const Encoding* encoding = &westernEncoding();
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

}  // namespace

void useCodePage(unsigned number, const Encoding& encoding) {
    chosen = {number, &encoding, false};
    chosen.oneByteEach = number != utf8 && !isLead(0x90);
}

const Encoding& systemEncoding() { return *chosen.encoding; }

std::size_t characterSize(std::string_view text, std::size_t at) {
    if (chosen.number == utf8) return codePointAt(text, at).size;
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

std::string lowerCase(std::string_view text) {
    std::string lower;
    for (std::size_t at = 0; at < text.size();) {
        const auto character = text.substr(at, characterSize(text, at));
        const auto folded = chosen.encoding->fromUtf8(foldedName(chosen.encoding->decode(character)));
        lower += folded ? *folded : character;
        at += character.size();
    }
    return lower;
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
