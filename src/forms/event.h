#pragma once

#include <functional>

namespace vrix {

class Screen;

// The caption of every window, and the title of the run-time report.
inline constexpr const char* programTitle = "Vrix 3.0 Administrative Toolkit";

// Runs one event of the program. If it fails, the run-time report is shown and the program ends. Screens call the
// program only through this function.
void runEvent(Screen& screen, const std::function<void()>& event) noexcept;

}  // namespace vrix
