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

// Escapes a text for output, so that a line stays one line of UTF-8: control characters become "\n", "\r" and "\x1b",
// unpaired surrogates "\ud800", and invalid bytes "\xff".
std::string shown(std::string_view text);
// JSON as it is printed, on lines of its own or on one line. Invalid UTF-8 in it becomes U+FFFD.
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
    // Prints the answer in the form that was asked for: JSON or lines of text.
    void answer(const Json& json, const Lines& lines) { request.json ? printJson(json, 2) : print(lines); }
};

// "1 Topic", "2 Topics".
std::string counted(std::size_t count, const std::string& what);
// In quotation marks.
std::string quoted(const std::string& text);
// A Refusal for the disk's last failure, with the system's message.
Refusal diskRefusal(Disk& disk, const std::string& what);
// Rows of cells as lines, the columns aligned.
Lines tableLines(const std::vector<Lines>& rows);

}  // namespace vrix
