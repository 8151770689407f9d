#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "common/encoding.h"
#include "platform/host.h"
#include "vrix/request.h"

namespace vrix {

// One run of a command: what it was asked for, and the system under it. Texts of stores are bytes of their code page;
// all that is printed is UTF-8.
class Run {
public:
    // Throws Failure for a code page that the system does not know.
    Run(const Request& wanted, Host& system);

    const Request& request;
    Host& host;
    const Encoding& encoding() const { return *encoding_; }

    // A text of a store for people: a byte that stands for no character shows as "\x81", a line break as "\n".
    std::string shown(std::string text) const;
    // A text of the command line in the code page; nothing where that lacks a character.
    std::optional<std::string> stored(const std::string& text) const { return encoding_->fromUtf8(text); }

    // Prints a line.
    void print(std::string line) { host.write(line += '\n'); }
    void printJson(const nlohmann::ordered_json& json);

private:
    std::unique_ptr<Encoding> encoding_;
};

// "1 Topic", "2 Topics".
std::string counted(std::size_t count, const std::string& what);
// In quotation marks.
std::string quoted(const std::string& text);
// Cells of UTF-8 as lines, the columns flush.
std::string tableText(const std::vector<std::vector<std::string>>& rows);

}  // namespace vrix
