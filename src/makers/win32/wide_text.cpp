#include "makers/win32/wide_text.h"

#include <windows.h>

#include <algorithm>

#include "common/utf8.h"

namespace vrix {

namespace {

template <class Text>
bool isAscii(const Text& text) {
    return std::all_of(text.begin(), text.end(), [](auto unit) { return static_cast<char32_t>(unit) < 0x80; });
}

}  // namespace

std::wstring wide(std::string_view text, unsigned codePage) {
    const int size = static_cast<int>(text.size());
    if (size == 0) return {};
    std::wstring result(text.size(), L'\0');  // no character has more UTF-16 code units than bytes
    result.resize(static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, result.data(), size)));
    return result;
}

std::string narrow(std::wstring_view text, unsigned codePage) {
    const int length = static_cast<int>(text.size());
    if (length == 0) return {};
    std::string result(4 * text.size(), '\0');
    const int room = static_cast<int>(result.size());
    result.resize(static_cast<std::size_t>(
        WideCharToMultiByte(codePage, 0, text.data(), length, result.data(), room, nullptr, nullptr)));
    return result;
}

// Most texts of a store are ASCII.
std::wstring utf8ToWide(std::string_view text) {
    if (isAscii(text)) return {text.begin(), text.end()};
    const std::u16string units = toUtf16(text);
    return {units.begin(), units.end()};
}

std::string wideToUtf8(std::wstring_view text) {
    if (!isAscii(text)) return fromUtf16(std::u16string(text.begin(), text.end()));
    std::string ascii(text.size(), '\0');
    std::transform(text.begin(), text.end(), ascii.begin(), [](wchar_t unit) { return static_cast<char>(unit); });
    return ascii;
}

}  // namespace vrix
