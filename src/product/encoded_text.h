#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/encoding.h"

namespace vrix {

// Decodes and encodes files; inside, texts are UTF-8. All refusals are Refusal (malformed).

// Decodes a file with a byte order mark: UTF-16 in either byte order, or UTF-8. Unpaired surrogates are kept. Nothing
// for a file without a mark. Refused are invalid UTF-8, with its line, and an odd number of bytes in UTF-16.
std::optional<std::string> markedText(std::string_view file);

// Decodes bytes of a code page. Invalid bytes are refused, with their line.
std::string decoded(std::string_view file, const Encoding& encoding);

// Encodes the text of a settings file in a code page. A character that it lacks is refused, with its entry.
std::string encodedSettings(std::string_view text, const Encoding& encoding);

// Decodes UTF-16, little or big endian; nothing for an odd number of bytes.
std::optional<std::string> fromUtf16Bytes(std::string_view bytes, bool isLeastFirst = true);

}  // namespace vrix
