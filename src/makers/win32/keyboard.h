#pragma once

#include <windows.h>

#include <optional>

#include "forms/form.h"

namespace vrix {

class ControlWindow;
class FormWindow;

// The keyboard of one page: which control has the focus, where Tab and the arrow keys move it, what Enter and the
// access keys press.
class Keyboard {
public:
    explicit Keyboard(FormWindow& page);

    // Whether this control is what Enter presses now.
    bool isDefault(const Control& control) const;
    // Access keys are underlined while Alt is held, or always if the user has set that for all programs.
    bool cuesShown() const { return cues_; }
    void showCues(bool shown);

    // Handles a queued message if it is a key for the page. False: the caller dispatches it.
    bool translate(MSG& message);
    // Answers what the platform asks the window of the page about focus and default button. Nothing for all else.
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);

    // Forgets the last focus: the next restoreFocus() begins at the first input.
    void forgetFocus() { last_ = nullptr; }
    // A control of the page took the focus.
    void focusTaken(ControlWindow& window);
    // Gives the focus to the control that had it last, or to its stand-in, or else to the first input.
    void restoreFocus();
    // Takes the focus from a control that is about to be hidden or disabled. The page has it until settle().
    void takeFocusAway();
    // At the end of an event: gives the focus to the control that is to have it. Null: it stays where it can.
    void settle(const Control* wanted);

private:
    bool takesShortcut(const MSG& message);
    bool takesKey(const MSG& message);
    bool takesArrow(const MSG& message);
    bool pressAccessKey(const MSG& message);
    void followAlt(const MSG& message);
    void showDefault();
    void focus(ControlWindow& window);
    ControlWindow* focused() const;
    ControlWindow* find(const Control* control) const;
    template <class Test>
    ControlWindow* first(const Test& suits) const;
    ControlWindow* defaultButton() const;
    ControlWindow* enterTarget() const;
    ControlWindow* firstInput() const;
    ControlWindow* neighbour(const ControlWindow& from, WPARAM arrow) const;

    FormWindow& page_;
    ControlWindow* shownDefault_ = nullptr;  // the control that was drawn last as the default button
    ControlWindow* last_ = nullptr;          // what had the focus last
    bool cues_;
};

// The letter of the access key that is underlined in a control; 0 for none.
char shownKey(const Control& control);

// Whether a key message is an automatic repeat.
inline bool isHeld(LPARAM keyData) { return (HIWORD(keyData) & KF_REPEAT) != 0; }

}  // namespace vrix
