#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "common/refusal.h"
#include "platform/console.h"
#include "platform/machine.h"
#include "vrix/request.h"

namespace vrix {

// JSON on lines of its own, or on one line. What is no UTF-8 in it comes with U+FFFD in its place.
std::string jsonText(const nlohmann::ordered_json& json, int indent = -1);

// One run of a command: what it was asked for, and the system under it.
struct Run {
    const Request& request;
    Console& console;
    Machine& machine;

    // Prints a line.
    void print(std::string line) { console.write(line += '\n'); }
    void printJson(const nlohmann::ordered_json& json) { print(jsonText(json, 2)); }
};

// A text for people: signs that would break a line or move the cursor come as "\n", "\r" and "\x1b".
std::string shown(const std::string& text);
// "1 Topic", "2 Topics".
std::string counted(std::size_t count, const std::string& what);
// In quotation marks.
std::string quoted(const std::string& text);
// What the disk has just refused, with the system's words for it.
Refusal diskRefusal(Disk& disk, const std::string& what);
// Cells of UTF-8 as lines, the columns flush.
std::string tableText(const std::vector<std::vector<std::string>>& rows);

}  // namespace vrix
