#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/encoding.h"

namespace vrix {

// The doors between files and the texts inside, which are UTF-8. All refusals are Refusal (malformed).

// The text of a file that begins with a mark: UTF-16 in either order of bytes, or UTF-8. Half characters of UTF-16 are
// kept. Nothing without a mark. Refused are bytes that are no UTF-8, with their line, and half a unit of UTF-16.
std::optional<std::string> markedText(std::string_view file);

// Bytes of a code page as text. Refused, with their line, are those that stand for no character.
std::string decoded(std::string_view file, const Encoding& encoding);

// The text of a settings file in a code page. A character that it lacks is refused, with its entry.
std::string encodedSettings(std::string_view text, const Encoding& encoding);

// UTF-16, least byte first or last, as text; nothing for an odd number of bytes.
std::optional<std::string> fromUtf16Bytes(std::string_view bytes, bool isLeastFirst = true);

}  // namespace vrix
