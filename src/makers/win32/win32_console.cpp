#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

#include "common/fixed.h"
#include "makers/win32/wide_text.h"
#include "platform/console.h"

namespace vrix {

namespace {

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE;
}

// Writes to a console as characters, to a file or pipe as UTF-8. False where some of it was lost.
bool put(DWORD stream, const std::string& text) {
    const HANDLE handle = GetStdHandle(stream);
    DWORD done = 0;
    if (!isConsole(handle)) {
        const auto size = static_cast<DWORD>(text.size());
        return WriteFile(handle, text.data(), size, &done, nullptr) != FALSE && done == size;
    }
    bool isWhole = true;
    const std::wstring whole = utf8ToWide(text);
    constexpr std::size_t most = 8'192;  // some consoles take no more at once
    for (std::size_t at = 0; at < whole.size(); at += most) {
        const auto part = static_cast<DWORD>(std::min(most, whole.size() - at));
        isWhole = WriteConsoleW(handle, whole.data() + at, part, &done, nullptr) != FALSE && isWhole;
    }
    return isWhole;
}

HANDLE input() { return GetStdHandle(STD_INPUT_HANDLE); }

// Its output is buffered.
class Win32Console final : public Console, Fixed {
public:
    ~Win32Console() override { handOn(); }

    bool isAttended() override { return isConsole(input()); }
    std::string readLine() override {
        handOn();
        std::array<wchar_t, 256> line{};
        DWORD length = 0;
        if (ReadConsoleW(input(), line.data(), static_cast<DWORD>(line.size()), &length, nullptr) == FALSE) return "";
        const std::wstring_view text(line.data(), length);
        return wideToUtf8(text.substr(0, text.find_first_of(L"\r\n")));
    }
    std::string readAll() override {
        std::string bytes;
        std::array<char, 65'536> part{};
        DWORD size = 0;
        while (ReadFile(input(), part.data(), static_cast<DWORD>(part.size()), &size, nullptr) != FALSE && size > 0) {
            bytes.append(part.data(), size);
        }
        return bytes;
    }
    void write(const std::string& text) override {
        constexpr std::size_t most = 65'536;
        waiting_ += text;
        if (waiting_.size() > most) handOn();
    }
    void writeError(const std::string& text) override {
        handOn();
        put(STD_ERROR_HANDLE, text);
    }
    bool flush() override {
        handOn();
        return isWhole_;
    }

private:
    void handOn() {
        if (!waiting_.empty()) isWhole_ = put(STD_OUTPUT_HANDLE, waiting_) && isWhole_;
        waiting_.clear();
    }

    std::string waiting_;
    bool isWhole_ = true;  // no output was lost
};

}  // namespace

Console& systemConsole() {
    static Win32Console console;
    return console;
}

}  // namespace vrix
