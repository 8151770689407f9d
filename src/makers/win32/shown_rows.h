#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vrix {

// The rows that a native list shows. They are brought in line with those of the program at the end of an event, however
// often the event changed them. Only the rows between the first and the last difference are replaced.
class ShownRows {
public:
    // The messages by which the native list inserts a row, deletes one, and deletes all.
    struct Messages {
        UINT insert;
        UINT remove;
        UINT clear;
    };
    explicit ShownRows(const Messages& messages) : messages_(messages) {}

    void replace(HWND list, std::vector<std::string> wanted);

private:
    Messages messages_;
    std::vector<std::string> rows_;
};

}  // namespace vrix
