#include "vrix/run.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "common/utf8.h"

namespace vrix {

namespace {

std::string escape(const char* form, unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), form, number);
    return text.data();
}

// How many characters a text of UTF-8 has.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }));
}

}  // namespace

std::string shown(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; })) return std::string(text);
    std::string safe;
    for (std::size_t at = 0; at < text.size();) {
        const auto [number, size] = codePointAt(text, at);
        if (number == '\n') {
            safe += "\\n";
        } else if (number == '\r') {
            safe += "\\r";
        } else if (number < 0x20 || number == 0x7F || number == CodePoint::none) {
            safe += escape("\\x%02x", static_cast<unsigned char>(text[at]));
        } else if (isHalf(number) || (number >= 0x80 && number < 0xA0)) {
            safe += escape("\\u%04x", number);
        } else {
            safe += text.substr(at, size);
        }
        at += size;
    }
    return safe;
}

std::string jsonText(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

Refusal diskRefusal(Disk& disk, const std::string& what) {
    return {Refusal::Kind::refused, what + " (" + disk.reason() + ")"};
}

Lines tableLines(const std::vector<Lines>& rows) {
    std::vector<std::size_t> widths;
    for (const Lines& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(shown(row[i])));
    }
    Lines lines;
    for (const Lines& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - widthOf(shown(row[i])) + 2, ' ');
        }
        line.resize(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace vrix
