#pragma once

#include <string>

namespace vrix {

// The input and output of a command line. Texts are UTF-8.
class Console {
public:
    virtual ~Console() = default;

    // Whether the input is interactive, so that the user can be asked.
    virtual bool isAttended() = 0;
    virtual std::string readLine() = 0;
    virtual std::string readAll() = 0;
    virtual void write(const std::string& text) = 0;
    virtual void writeError(const std::string& text) = 0;
    // Flushes the output, which is buffered until then. False where some of it was lost.
    virtual bool flush() = 0;
};

// The console of the platform that the program is built for.
Console& systemConsole();

}  // namespace vrix
