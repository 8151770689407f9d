#pragma once

#include <stdexcept>
#include <string>

namespace vrix {

// Why something was not done. what() is a sentence in UTF-8 without its full stop; it names the file, the key or the
// place that is meant.
class Refusal final : public std::runtime_error {
public:
    enum class Kind {
        wrongUse,   // what was asked for makes no sense
        notFound,   // what was named is not there
        refused,    // by the store or by the system
        malformed,  // a file or a text is not what it should be
    };

    Refusal(Kind kind, const std::string& sentence) : std::runtime_error(sentence), kind_(kind) {}
    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

}  // namespace vrix
