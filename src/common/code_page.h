#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vrix {

// All texts are bytes of the system's code page, in which a character takes one byte or more. What goes through a text
// character by character asks here: the second byte of a character may look like a backslash or a capital letter.

// Turns a text into its small letters.
using LowerCaser = std::string (*)(std::string text);

// Says which code page holds, by its number. Until then it is 1252. `lower` is the platform's way to small letters;
// without one, the letters of ASCII and of code page 1252 are known. To be called before the program makes anything.
void useCodePage(unsigned number, LowerCaser lower = nullptr);
unsigned codePage();

// The bytes of the character that begins at `at`. What is cut off or makes no character counts as one byte.
std::size_t characterSize(std::string_view text, std::size_t at);

std::size_t characterCount(std::string_view text);
// Where the character number `index`, from 0, begins; the text's size for those beyond its end.
std::size_t characterStart(std::string_view text, std::size_t index);

// Where a sign of ASCII stands as a character, from the byte `from` on, which begins one; npos if nowhere.
std::size_t findCharacter(std::string_view text, char sign, std::size_t from = 0);
// The last place of it; npos if nowhere.
std::size_t findLastCharacter(std::string_view text, char sign);

std::string lowerCase(std::string text);

// The text with a question mark for each byte that is a part of a character only. To be used for what is written: such
// a byte would take in whatever is written behind it.
std::string wholeCharacters(std::string text);

}  // namespace vrix
