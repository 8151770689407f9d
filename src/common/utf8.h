#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vrix {

// Texts of the store outside the pages are UTF-8. The platform's texts are UTF-16 and may hold half characters, one of
// a pair of surrogates alone: such a half stands here as three bytes, as UTF-8 would write it, and so it is kept.

std::string fromUtf16(std::u16string_view text);
// A byte that belongs to no character comes as U+FFFD.
std::u16string toUtf16(std::string_view text);

// The length in units of UTF-16, in which the platform counts.
std::size_t utf16Size(std::string_view text);

// One character of a text: its number, and how many bytes it has. A byte that belongs to none has no number.
struct CodePoint {
    static constexpr char32_t none = 0xFFFF'FFFF;
    char32_t number;
    std::size_t size;
};
// The character that begins at `at`, within the text.
CodePoint codePointAt(std::string_view text, std::size_t at);
void append(std::string& text, char32_t codePoint);

// Half a character of UTF-16.
constexpr bool isHalf(char32_t codePoint) { return codePoint >= 0xD800 && codePoint < 0xE000; }
// Whether the text is characters alone: no halves, and no byte that belongs to none.
bool isWhole(std::string_view text);

// ---- Names ----

// Gives the letter by which a name is compared, for a letter beyond ASCII that UTF-16 writes as one unit.
using LetterFolder = char32_t (*)(char32_t letter);
// To be called before the program makes anything. Without one the letters of Western Europe are known.
void useLetterFolder(LetterFolder folder);
// Two names are one to a registry when these are the same.
std::string foldedName(std::string_view name);

}  // namespace vrix
