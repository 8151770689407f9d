#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace vrix::bench {

using Work = std::function<void()>;

// The time of one run in milliseconds.
double timed(const Work& work);
double median(std::vector<double> values);
std::string text(double number);

// Prints a figure as a line of fields for bench/run; a limit of 0 is none.
void report(const std::string& figure, double value, double limit, const std::string& detail = {});

// One way to do a task, with a setup that is not timed.
struct Side {
    Work run;
    Work prepare = [] {};
};
// Runs both sides alternately and reports the median of the ratios. One round more, first, fills the caches.
void compare(const std::string& figure, int rounds, double limit, const Side& ours, const Side& theirs);

// A process whose output is discarded.
class Process {
public:
    explicit Process(std::string command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // Its exit code.
    DWORD wait() const;
    bool showsWindow() const;
    double peakKilobytes() const;  // of private memory
    void end() const;

private:
    PROCESS_INFORMATION process_{};
};

// Runs a program to its end. One that fails ends the measuring.
Work program(const std::string& command);

}  // namespace vrix::bench
