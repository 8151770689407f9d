// Works the windows of a program from outside, as a walk tells it:
//     vrix_driver WALK [NAME=VALUE ...]
// "pictures" names the folder for pictures, with its separator at the end. Other values stand in braces in the walk.
// The exit code is 0 for a walk that came true in every step.

#include <objbase.h>
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <iostream>

#include "screen.h"
#include "walker.h"

namespace {

using namespace vrix::driver;

int walk(std::istream& stream, const std::string& name, const std::map<std::string, std::string>& values) {
    const auto pictures = values.find("pictures");
    Walker walker(pictures == values.end() ? std::string() : pictures->second);
    Step current;
    try {
        for (Step& step : readScript(stream, values)) {
            current = std::move(step);
            walker.take(current);
        }
        if (walker.running()) throw StepFailure("the program still runs at the end of the walk");
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s, line %d: %s\n  %s\nOn the screen:\n%s", name.c_str(), current.line,
                     current.source.c_str(), failure.what(), walker.sight().c_str());
    }
    try {
        walker.pictureOfFailure();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "There is no picture of it: %s\n", failure.what());
    }
    return 1;
}

}  // namespace

int main(int count, char** arguments) {
    std::map<std::string, std::string> values;
    std::string file;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const auto equals = argument.find('=');
        if (equals == std::string::npos) {
            file = argument;
        } else {
            values[argument.substr(0, equals)] = argument.substr(equals + 1);
        }
    }
    CoInitialize(nullptr);
    if (file.empty()) return walk(std::cin, "standard input", values);
    std::ifstream stream(file);
    if (!stream) {
        std::fprintf(stderr, "The walk %s cannot be read.\n", file.c_str());
        return 1;
    }
    return walk(stream, file, values);
}
