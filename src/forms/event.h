#pragma once

#include <functional>

namespace vrix {

class Screen;

// The caption of every window, and the title of the run-time report.
inline constexpr const char* programTitle = "Vrix 3.0 Administrative Toolkit";

// Runs one event of the program to its end. What escapes it is shown as the run-time report, and the program ends.
// Makers of windows and timers call nothing of the program but through this.
void runEvent(Screen& screen, const std::function<void()>& event) noexcept;

}  // namespace vrix
