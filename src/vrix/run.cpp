#include "vrix/run.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace vrix {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

std::string escapedByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::string("\\x") + hexDigits[byte / 16] + hexDigits[byte % 16];
}

// How many characters a text of UTF-8 has.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }));
}

}  // namespace

std::string jsonText(const nlohmann::ordered_json& json, int indent) {
    return json.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string shown(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        if (c == '\n') {
            safe += "\\n";
        } else if (c == '\r') {
            safe += "\\r";
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            safe += escapedByte(c);
        } else {
            safe += c;
        }
    }
    return safe;
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

Refusal diskRefusal(Disk& disk, const std::string& what) {
    return {Refusal::Kind::refused, what + " (" + disk.reason() + ")"};
}

std::string tableText(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - widthOf(row[i]) + 2, ' ');
        }
        line.resize(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

}  // namespace vrix
