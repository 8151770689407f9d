#pragma once

namespace vrix {

class Screen;

// The caption of every window, and the title of the run-time report.
inline constexpr const char* programTitle = "Vrix 3.0 Administrative Toolkit";

// Shows the run-time report of the failure that is being caught, and ends the program.
void reportFailure(Screen& screen) noexcept;

// Runs one event of the program. If it fails, the run-time report is shown and the program ends. Screens call the
// program only through this function.
template <class Event>
void runEvent(Screen& screen, const Event& event) noexcept {
    try {
        event();
    } catch (...) {
        reportFailure(screen);
    }
}

}  // namespace vrix
