#include "product/encoded_text.h"

#include <cstdio>

#include "common/utf8.h"
#include "product/settings_lines.h"

namespace vrix {

namespace {

std::string lineAt(std::string_view text, std::size_t at) {
    const std::size_t begin = text.rfind('\n', at) + 1;
    return std::string(text.substr(begin, text.find_first_of("\r\n", at) - begin));
}

std::string told(std::string_view character) {
    const char32_t number = codePointAt(character, 0).number;
    char code[16];
    std::snprintf(code, sizeof code, "U+%04lX", static_cast<unsigned long>(number));
    if (isHalf(number)) return std::string("half a character (") + code + ')';
    return "the character \"" + std::string(character) + "\" (" + code + ')';
}

}  // namespace

std::optional<std::string> fromUtf16Bytes(std::string_view bytes, bool isLeastFirst) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::u16string units;
    units.reserve(bytes.size() / 2);
    const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])); };
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const unsigned least = byte(isLeastFirst ? at : at + 1);
        units += static_cast<char16_t>(byte(isLeastFirst ? at + 1 : at) << 8 | least);
    }
    return fromUtf16(units);
}

std::optional<std::string> markedText(std::string_view file) {
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    const bool isLeastFirst = file.starts_with("\xFF\xFE");
    if (isLeastFirst || file.starts_with("\xFE\xFF")) {
        auto text = fromUtf16Bytes(file.substr(2), isLeastFirst);
        if (!text) throw malformed("", "the file is cut off within a character");
        return text;
    }
    if (!file.starts_with(utf8Mark)) return std::nullopt;
    file.remove_prefix(utf8Mark.size());
    if (!isWhole(file)) refuseFirst(file, isWhole, "this is no UTF-8");
    return std::string(file);
}

std::string decoded(std::string_view file, const Encoding& encoding) {
    if (auto text = encoding.toUtf8(file)) return *std::move(text);
    const auto isKnown = [&](std::string_view line) { return encoding.toUtf8(line).has_value(); };
    refuseFirst(file, isKnown, "a byte stands for no character of the code page");
}

std::string encodedSettings(std::string_view text, const Encoding& encoding) {
    if (auto bytes = encoding.fromUtf8(text)) return *std::move(bytes);
    for (std::size_t at = 0; at < text.size(); at += codePointAt(text, at).size) {
        const std::string_view character = text.substr(at, codePointAt(text, at).size);
        if (encoding.fromUtf8(character)) continue;
        const std::string line = lineAt(text, at);
        const std::string why = "the code page lacks " + told(character) + "; a JSON file keeps it";
        throw malformed(line.substr(0, line.find("=\"", 1)), why);
    }
    throw malformed("", "the code page lacks a character");
}

}  // namespace vrix
