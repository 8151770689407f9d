#pragma once

#include <string>

namespace vrix {

class Form;
class Control;
class Timer;

enum class Buttons { ok, okCancel };
enum class Answer { ok, cancel };

// A size in units of 1/96 inch.
struct Size {
    int width;
    int height;
};

// What happened to the rows of a list.
enum class RowChange { inserted, removed, cleared, marked };

// The screen. State lives in the forms and controls; a maker is told what changed, asks them for the rest, and reports
// what the user did by calling their gestures, each through runEvent(). What it is told takes effect on the screen at
// the end of the event, and before a message box or dialog: the new page comes up before the old one goes.
class Screen {
public:
    virtual ~Screen() = default;

    // The form was shown, hidden, enabled, disabled or moved. Its first showing makes its window.
    virtual void formChanged(Form& form) = 0;
    // The control's text, caption, value, current row, face, visibility or enabling changed.
    virtual void controlChanged(Control& control) = 0;
    // The rows of a list changed: one row, or all of them (cleared, with row -1).
    virtual void rowsChanged(Control& list, RowChange change, int row) = 0;
    // The timer was switched on or off, or has another interval.
    virtual void timerChanged(Timer& timer) = 0;

    // Shows a message box without an icon over all windows of the program and waits for its answer. Closing it is
    // cancel, or ok where that is the only button.
    virtual Answer ask(const std::string& text, const std::string& title, Buttons buttons) = 0;

    virtual Size screenSize() = 0;

    // Ends the program after the running event, with all its screen.
    virtual void quit() = 0;
};

}  // namespace vrix
