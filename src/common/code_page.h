#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "common/encoding.h"

namespace vrix {

// Texts of the pages are bytes of the system's code page, in which a character takes one byte or more. Code that goes
// through a text character by character asks here: the trail byte of a character may look like a backslash or an
// uppercase letter.

// Sets the code page, by its number, and its encoding. Until then it is 1252. To be called before the program makes
// anything; the encoding lives as long as the program.
void useCodePage(unsigned number, const Encoding& encoding);
const Encoding& systemEncoding();

// The bytes of the character that begins at `at`. A truncated or invalid character counts as one byte.
std::size_t characterSize(std::string_view text, std::size_t at);

std::size_t characterCount(std::string_view text);
// Where the character number `index`, from 0, begins; the text's size for those beyond its end.
std::size_t characterStart(std::string_view text, std::size_t index);

// The position of an ASCII character, searched from the character boundary `from`; npos if there is none.
std::size_t findCharacter(std::string_view text, char sign, std::size_t from = 0);
// The last position of it; npos if there is none.
std::size_t findLastCharacter(std::string_view text, char sign);

// The text in lowercase. A letter whose lowercase form the code page lacks stays as it is.
std::string lowerCase(std::string_view text);

// The text with a question mark for each byte of an incomplete character. For text that is written: such a byte would
// absorb the bytes behind it.
std::string wholeCharacters(std::string text);

}  // namespace vrix
