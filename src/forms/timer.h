#pragma once

#include <functional>

#include "platform/windows.h"

namespace vrix {

// Raises its event every `interval` milliseconds while it is enabled.
class Timer final {
public:
    Timer(Windows& windows, int interval) : windows_(windows), interval_(interval) {}
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    std::function<void()> onTimer;
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) {
        enabled_ = enabled;
        windows_.timerChanged(*this);
    }

private:
    Windows& windows_;
    int interval_;
    bool enabled_ = false;
};

}  // namespace vrix
