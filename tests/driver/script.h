#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace vrix::driver {

// What a step names: one text, or a text behind others on the page, as in "Cover Page 2" > "Path:".
using Target = std::vector<std::string>;

// One line of a walk: a verb and what it takes. Texts stand in double quotes as they are on the screen; single words
// need none. A word in braces stands for a value given to the driver.
struct Step {
    int line = 0;
    std::string source;
    std::string verb;
    std::vector<Target> arguments;

    const Target& target(std::size_t i) const;  // throws StepFailure where it is missing
    const std::string& text(std::size_t i) const { return target(i).back(); }
    std::vector<std::string> textsFrom(std::size_t i) const;
};

// Empty lines, and lines that begin with "#", are no steps.
std::vector<Step> readScript(std::istream& stream, const std::map<std::string, std::string>& values);

}  // namespace vrix::driver
