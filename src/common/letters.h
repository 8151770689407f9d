#pragma once

#include <string>

namespace vrix {

// A letter of the Western code page as its small letter; any other byte as it is.
inline char lowerCase(char c) {
    const auto byte = static_cast<unsigned char>(c);
    const bool ascii = byte >= 'A' && byte <= 'Z';
    const bool accented = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;  // the multiplication sign is no letter
    return ascii || accented ? static_cast<char>(byte + 0x20) : c;
}

inline std::string lowerCase(std::string text) {
    for (char& c : text) c = lowerCase(c);
    return text;
}

}  // namespace vrix
