#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "common/encoding.h"

namespace vrix {

// All texts are bytes of the system's code page, in which a character takes one byte or more. What goes through a text
// character by character asks here: the second byte of a character may look like a backslash or a capital letter.

// Says which code page holds, by its number, and how its texts are turned. Until then it is 1252. To be called before
// the program makes anything; the encoding lives as long as the program.
void useCodePage(unsigned number, const Encoding& encoding);
const Encoding& systemEncoding();

// The bytes of the character that begins at `at`. What is cut off or makes no character counts as one byte.
std::size_t characterSize(std::string_view text, std::size_t at);

std::size_t characterCount(std::string_view text);
// Where the character number `index`, from 0, begins; the text's size for those beyond its end.
std::size_t characterStart(std::string_view text, std::size_t index);

// Where a sign of ASCII stands as a character, from the byte `from` on, which begins one; npos if nowhere.
std::size_t findCharacter(std::string_view text, char sign, std::size_t from = 0);
// The last place of it; npos if nowhere.
std::size_t findLastCharacter(std::string_view text, char sign);

// The text in small letters. A letter whose small one the code page lacks stays as it is.
std::string lowerCase(std::string_view text);

// The text with a question mark for each byte that is a part of a character only. To be used for what is written: such
// a byte would take in whatever is written behind it.
std::string wholeCharacters(std::string text);

}  // namespace vrix
