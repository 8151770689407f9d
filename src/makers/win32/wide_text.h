#pragma once

#include <string>
#include <string_view>

namespace vrix {

// Text for the platform's wide calls, and back. Code page 0 is the system's own, in which the program keeps its texts.

std::wstring wide(std::string_view text, unsigned codePage = 0);

// A character that the code page lacks becomes a best-fit character or "?".
std::string narrow(std::wstring_view text, unsigned codePage = 0);

// UTF-8 to UTF-16 and back; unpaired surrogates are kept.
std::wstring utf8ToWide(std::string_view text);
std::string wideToUtf8(std::wstring_view text);

}  // namespace vrix
