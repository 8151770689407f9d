#pragma once

#include <functional>

#include "common/fixed.h"
#include "platform/screen.h"

namespace vrix {

// Raises its event every `interval` milliseconds while it is enabled.
class Timer final : Fixed {
public:
    Timer(Screen& screen, int interval) : screen_(screen), interval_(interval) {}

    std::function<void()> onTimer;
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) {
        enabled_ = enabled;
        screen_.timerChanged(*this);
    }

private:
    Screen& screen_;
    int interval_;
    bool enabled_ = false;
};

}  // namespace vrix
