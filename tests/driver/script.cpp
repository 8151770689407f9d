#include "script.h"

#include <istream>
#include <stdexcept>

#include "screen.h"

namespace vrix::driver {

namespace {

using Values = std::map<std::string, std::string>;

std::string filledIn(std::string text, const Values& values) {
    for (const auto& [name, value] : values) {
        const std::string mark = '{' + name + '}';
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + value.size())) {
            text.replace(at, mark.size(), value);
        }
    }
    return text;
}

Step readStep(const std::string& source, int line, const Values& values) {
    Step step{.line = line, .source = source, .verb = {}, .arguments = {}};
    bool below = false;
    for (std::size_t at = source.find_first_not_of(' '); at < source.size(); at = source.find_first_not_of(' ', at)) {
        const bool quoted = source[at] == '"';
        const std::size_t end = source.find(quoted ? '"' : ' ', at + 1);
        if (quoted && end == std::string::npos) throw StepFailure("a quotation mark is missing");
        const std::string word = source.substr(at + (quoted ? 1 : 0), end - at - (quoted ? 1 : 0));
        at = quoted ? end + 1 : end;
        if (step.verb.empty()) {
            step.verb = word;
        } else if (!quoted && word == ">") {
            below = true;
        } else if (below && !step.arguments.empty()) {
            step.arguments.back().push_back(filledIn(word, values));
            below = false;
        } else {
            step.arguments.push_back({filledIn(word, values)});
        }
    }
    return step;
}

}  // namespace

const Target& Step::target(std::size_t i) const {
    if (i >= arguments.size()) throw StepFailure("the step takes more than that");
    return arguments[i];
}

std::vector<std::string> Step::textsFrom(std::size_t i) const {
    std::vector<std::string> texts;
    for (; i < arguments.size(); ++i) texts.push_back(text(i));
    return texts;
}

std::vector<Step> readScript(std::istream& stream, const Values& values) {
    std::vector<Step> steps;
    std::string source;
    for (int line = 1; std::getline(stream, source); ++line) {
        if (!source.empty() && source.back() == '\r') source.pop_back();
        Step step = readStep(source, line, values);
        if (!step.verb.empty() && step.verb.front() != '#') steps.push_back(std::move(step));
    }
    return steps;
}

}  // namespace vrix::driver
