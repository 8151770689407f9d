#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "forms/control.h"

namespace vrix {

class ControlWindow;
class Win32Screen;

// The keyboard of one page: which control has the focus, where Tab and the arrow keys move it, what Enter presses.
class Keyboard {
public:
    Keyboard(Win32Screen& screen, HWND page) : screen_(screen), page_(page) {}

    // Takes the next control of the page, in reading order.
    void add(ControlWindow& window);
    // Enter presses this control while the focus is on no other button.
    bool isDefault(const Control& control) const;

    // Handles a message of the queue if it is a key that works on the page. False: it is to be handled as any other.
    bool translate(MSG& message);
    // Answers what the platform asks the window of the page about focus and default button. Nothing for all else.
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);

    // Makes the next restoreFocus() begin at the first input.
    void forgetFocus() { lastFocus_ = nullptr; }
    // A control of the page took the focus.
    void focusTaken(HWND control) { lastFocus_ = control; }
    // Gives the focus to the control that had it last, or else to the first input.
    void restoreFocus();
    // Moves the focus away from a control that is about to be hidden or disabled.
    void moveFocusFrom(HWND control);

private:
    bool takesKey(const MSG& message);
    void pressEnter();
    void focus(HWND control);
    ControlWindow* firstInput() const;

    Win32Screen& screen_;
    HWND page_;
    std::vector<ControlWindow*> controls_;
    ControlWindow* default_ = nullptr;
    HWND lastFocus_ = nullptr;  // what had the focus last
};

// Whether a key message comes from a key that is held down, not newly pressed.
inline bool isHeld(LPARAM keyData) { return (HIWORD(keyData) & KF_REPEAT) != 0; }

}  // namespace vrix
