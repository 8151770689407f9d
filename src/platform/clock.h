#pragma once

#include <string>

namespace vrix {

class Clock {
public:
    virtual ~Clock() = default;

    // The present date and time of day as the system's general text for them, such as "15/11/2026 19:30:05".
    virtual std::string now() = 0;
};

}  // namespace vrix
