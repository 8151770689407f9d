#pragma once

#include <exception>
#include <utility>

namespace vrix {

// The failures of statements, by their numbers.
enum class FailureNumber {
    none = 0,
    invalidCall = 5,
    overflow = 6,
    subscript = 9,
    typeMismatch = 13,
    fileNotFound = 53,
    inputPastEnd = 62,
    permissionDenied = 70,
    pathNotFound = 76,
    invalidPropertyValue = 380,
};

// The text that the run-time report gives for a number, such as "Type mismatch".
const char* failureText(FailureNumber number);

// Thrown by a statement that fails. Where ignoring() does not drop it, it ends the event and then the program.
class RuntimeFailure final : public std::exception {
public:
    explicit RuntimeFailure(FailureNumber number) : number_(number) {}
    FailureNumber number() const { return number_; }
    const char* what() const noexcept override { return failureText(number_); }

private:
    FailureNumber number_;
};

// Runs one statement. A RuntimeFailure in it is caught and its number returned; other exceptions propagate.
template <class Statement>
FailureNumber ignoring(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return FailureNumber::none;
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
}

// Runs the statements of a routine one by one. A failure ends the routine, or it is ignored and the next statement
// runs.
struct StatementRunner {
    bool ignoreFailures = false;

    template <class Statement>
    void operator()(Statement&& statement) const {
        if (ignoreFailures) {
            ignoring(statement);
        } else {
            statement();
        }
    }
};

}  // namespace vrix
