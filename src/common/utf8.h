#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vrix {

// Texts outside the pages are UTF-8. The platform's texts are UTF-16 and may hold unpaired surrogates: each is encoded
// here as three bytes, as UTF-8 would encode that code point, so it is kept.

std::string fromUtf16(std::u16string_view text);
// An invalid byte becomes U+FFFD.
std::u16string toUtf16(std::string_view text);

// The length in UTF-16 code units, in which the platform counts.
std::size_t utf16Size(std::string_view text);

// One character of a text: its code point and its size in bytes. An invalid byte has no code point.
struct CodePoint {
    static constexpr char32_t none = 0xFFFF'FFFF;
    char32_t number;
    std::size_t size;
};
// The character that begins at `at`, within the text.
CodePoint codePointAt(std::string_view text, std::size_t at);
void append(std::string& text, char32_t codePoint);

// A surrogate of UTF-16.
constexpr bool isHalf(char32_t codePoint) { return codePoint >= 0xD800 && codePoint < 0xE000; }
// Whether the text is valid UTF-8: no unpaired surrogates, no invalid bytes.
bool isWhole(std::string_view text);

// ---- Names ----

// Folds the case of a letter for comparing names: one beyond ASCII that is one UTF-16 code unit.
using LetterFolder = char32_t (*)(char32_t letter);
// To be called before the program makes anything. Without one only Western European letters are folded.
void useLetterFolder(LetterFolder folder);
// The case-folded name: a registry takes two names as the same when these are equal.
std::string foldedName(std::string_view name);

}  // namespace vrix
