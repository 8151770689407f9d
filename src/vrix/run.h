#pragma once

#include <string>
#include <vector>

#include "common/refusal.h"
#include "platform/console.h"
#include "platform/machine.h"
#include "product/json/json_reader.h"
#include "vrix/request.h"

namespace vrix {

using Lines = std::vector<std::string>;

// A text as all of them are printed, so that a line stays one line of UTF-8: signs that would break it or move the
// cursor come as "\n", "\r" and "\x1b", half characters as "\ud800", and bytes that belong to no character as "\xff".
std::string shown(std::string_view text);
// JSON as it is printed, on lines of its own or on one line. What is no UTF-8 in it comes with U+FFFD in its place.
std::string jsonText(const Json& json, int indent = -1);

// One run of a command: what it was asked for, and the system under it.
struct Run {
    const Request& request;
    Console& console;
    Machine& machine;

    // Prints a line.
    void print(const std::string& line) { console.write(shown(line) + '\n'); }
    void print(const Lines& lines) {
        for (const std::string& line : lines) print(line);
    }
    void printJson(const Json& json, int indent = -1) { console.write(jsonText(json, indent) + '\n'); }
    // Prints the answer in the form that was asked for: JSON for machines, or lines for people.
    void answer(const Json& json, const Lines& lines) { request.json ? printJson(json, 2) : print(lines); }
};

// "1 Topic", "2 Topics".
std::string counted(std::size_t count, const std::string& what);
// In quotation marks.
std::string quoted(const std::string& text);
// What the disk has just refused, with the system's words for it.
Refusal diskRefusal(Disk& disk, const std::string& what);
// Rows of cells as lines, the columns flush.
Lines tableLines(const std::vector<Lines>& rows);

}  // namespace vrix
