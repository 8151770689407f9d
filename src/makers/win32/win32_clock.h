#pragma once

#include "platform/clock.h"

namespace vrix {

// The machine's clock. Date and time are written as the user's settings say.
class Win32Clock final : public Clock {
public:
    std::string now() override;
};

}  // namespace vrix
