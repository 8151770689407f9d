#pragma once

#include "platform/clock.h"

namespace vrix {

// The machine's clock, written as the user set dates and times to be written.
class Win32Clock final : public Clock {
public:
    std::string now() override;
};

}  // namespace vrix
