#include <unistd.h>

#include <array>
#include <cstdio>

#include "platform/console.h"

namespace vrix {

namespace {

class PosixConsole final : public Console {
public:
    bool isAttended() override { return isatty(STDIN_FILENO) != 0; }
    std::string readLine() override {
        std::string line;
        for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar()) line += static_cast<char>(c);
        return line;
    }
    std::string readAll() override {
        std::string bytes;
        std::array<char, 65'536> part{};
        while (const std::size_t size = std::fread(part.data(), 1, part.size(), stdin)) bytes.append(part.data(), size);
        return bytes;
    }
    void write(const std::string& text) override { std::fwrite(text.data(), 1, text.size(), stdout); }
    void writeError(const std::string& text) override {
        std::fflush(stdout);
        std::fwrite(text.data(), 1, text.size(), stderr);
    }
    bool flush() override { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }
};

}  // namespace

Console& systemConsole() {
    static PosixConsole console;
    return console;
}

}  // namespace vrix
