#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vrix::bench {

using Work = std::function<void()>;

// How much is measured: a trial run only shows that everything works.
struct Scale {
    bool trial;
    int rounds(int usual) const { return trial ? 1 : usual; }
    std::vector<int> sizes(std::vector<int> usual) const { return trial ? std::vector<int>{10, 20} : usual; }
};

// The time of one run in milliseconds.
double timed(const Work& work);
double median(std::vector<double> values);
// The exponent with which times grow: the slope of log time over log size.
double growth(const std::vector<int>& sizes, const std::vector<double>& times);

// A way to some end, with a part in front that is not timed.
struct Side {
    Work run;
    Work prepare = [] {};
};
// The times of all sides, run in turns: for each side the times of the rounds. One round more warms everything up.
std::vector<std::vector<double>> inTurns(int rounds, const std::vector<Side>& sides);
// The median of the quotients of the single rounds.
double ratio(const std::vector<double>& ours, const std::vector<double>& theirs);

// Prints a figure and its limit as a line of fields, for the command that makes the table.
void report(const std::string& figure, double value, double limit, const std::string& detail = {});
std::string text(double number);

}  // namespace vrix::bench
