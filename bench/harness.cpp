#include "harness.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

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

double growth(const std::vector<int>& sizes, const std::vector<double>& times) {
    constexpr double shortest = 0.01;  // below that the processor's caches are measured
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    const auto n = static_cast<double>(sizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double size = std::log(sizes[i]);
        const double time = std::log(std::max(times[i], shortest));
        x += size;
        y += time;
        xx += size * size;
        xy += size * time;
    }
    return (n * xy - x * y) / (n * xx - x * x);
}

std::vector<std::vector<double>> inTurns(int rounds, const std::vector<Side>& sides) {
    std::vector<std::vector<double>> times(sides.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t side = 0; side < sides.size(); ++side) {
            sides[side].prepare();
            const double time = timed(sides[side].run);
            if (round >= 0) times[side].push_back(time);
        }
    }
    return times;
}

double ratio(const std::vector<double>& ours, const std::vector<double>& theirs) {
    std::vector<double> quotients;
    for (std::size_t round = 0; round < ours.size(); ++round) quotients.push_back(ours[round] / theirs[round]);
    return median(quotients);
}

void report(const std::string& figure, double value, double limit, const std::string& detail) {
    std::printf("figure|%s|%.3f|%g|%s\n", figure.c_str(), value, limit, detail.c_str());
    std::fflush(stdout);
}

std::string text(double number) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.4g", number);
    return digits;
}

}  // namespace vrix::bench
