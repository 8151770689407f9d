#pragma once

#include <windows.h>

#include <string>

// The user's hands: events of the mouse and of the keyboard as the devices give them, to whatever stands in front.
namespace vrix::driver::hands {

POINT middleOf(const RECT& area);

void moveTo(POINT point);
// Presses the left button at one place and lets go at another.
void drag(POINT from, POINT to);
inline void click(POINT point) { drag(point, point); }

// Types characters, whatever keys they lie on.
void type(const std::string& text);
// Presses keys together: "Tab", "Shift+Tab", "Alt+F4". Throws StepFailure for a name that no key has.
void keys(const std::string& names);

}  // namespace vrix::driver::hands
