#include "common/runtime_failure.h"

namespace vrix {

const char* failureText(FailureNumber number) {
    switch (number) {
        case FailureNumber::none: return "";
        case FailureNumber::invalidCall: return "Invalid procedure call or argument";
        case FailureNumber::overflow: return "Overflow";
        case FailureNumber::subscript: return "Subscript out of range";
        case FailureNumber::typeMismatch: return "Type mismatch";
        case FailureNumber::fileNotFound: return "File not found";
        case FailureNumber::inputPastEnd: return "Input past end of file";
        case FailureNumber::permissionDenied: return "Permission denied";
        case FailureNumber::pathNotFound: return "Path not found";
        case FailureNumber::invalidPropertyValue: return "Invalid property value";
    }
    return "";
}

}  // namespace vrix
