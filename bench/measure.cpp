#include "measure.h"

#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace vrix::bench {

double timed(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string text(double number) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.4g", number);
    return digits;
}

void report(const std::string& figure, double value, double limit, const std::string& detail) {
    std::printf("figure|%s|%.3f|%g|%s\n", figure.c_str(), value, limit, detail.c_str());
    std::fflush(stdout);
}

void compare(const std::string& figure, int rounds, double limit, const Side& ours, const Side& theirs) {
    std::vector<double> mine, others, quotients;
    for (int round = -1; round < rounds; ++round) {
        ours.prepare();
        const double my = timed(ours.run);
        theirs.prepare();
        const double other = timed(theirs.run);
        if (round < 0) continue;
        mine.push_back(my);
        others.push_back(other);
        quotients.push_back(my / other);
    }
    report(figure, median(quotients), limit, text(median(mine)) + " to " + text(median(others)) + " ms");
}

Process::Process(std::string command) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError =
        CreateFileA("NUL", GENERIC_WRITE, FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr);
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                                        nullptr, &start, &process_);
    CloseHandle(start.hStdOutput);
    if (started == FALSE) throw std::runtime_error("cannot start " + command);
}

Process::~Process() {
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

DWORD Process::wait() const {
    DWORD code = 0;
    WaitForSingleObject(process_.hProcess, INFINITE);
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

bool Process::showsWindow() const {
    struct Search {
        DWORD process;
        bool found;
    } search{process_.dwProcessId, false};
    const auto look = [](HWND window, LPARAM parameter) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        wanted.found = process == wanted.process && IsWindowVisible(window);
        return !wanted.found;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

double Process::peakKilobytes() const {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(process_.hProcess, &counters, sizeof counters);
    return static_cast<double>(counters.PeakPagefileUsage) / 1024;
}

void Process::end() const {
    TerminateProcess(process_.hProcess, 0);
    wait();
}

Work program(const std::string& command) {
    return [command] {
        if (Process(command).wait() != 0) throw std::runtime_error("failed: " + command);
    };
}

}  // namespace vrix::bench
