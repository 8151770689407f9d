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

// What happened to the rows of a list: some came or went, all of them went, or some were marked.
enum class RowChange { changed, cleared, marked };

// The screen. Forms and controls hold all state. They tell the screen that something changed, and it asks them what to
// show. What the user does, the screen passes to them, each time through runEvent(). Changes appear at the end of the
// event, and before a message box or a dialog. A new page is shown before the old one is hidden.
class Screen {
public:
    virtual ~Screen() = default;

    // The form was shown, hidden, enabled, disabled or moved. Its first showing makes its window.
    virtual void formChanged(Form& form) = 0;
    // The control's text, caption, value, current row, face, visibility or enabling changed.
    virtual void controlChanged(Control& control) = 0;
    virtual void rowsChanged(Control& list, RowChange change) = 0;
    // The control is to have the focus at the end of the event. A screen without focus ignores it.
    virtual void focusWanted(Control& /*control*/) {}
    // The timer was switched on or off, or has another interval.
    virtual void timerChanged(Timer& timer) = 0;

    // Shows a message box without an icon, in front of all windows of the program, and waits for the answer. Closing
    // the box answers cancel, or ok where that is the only button.
    virtual Answer ask(const std::string& text, const std::string& title, Buttons buttons) = 0;

    virtual Size screenSize() = 0;

    // Ends the program after the running event.
    virtual void quit() = 0;
    // The same behind the report of a failure. A screen that gives an exit code makes it 1.
    virtual void quitByFailure() { quit(); }
};

}  // namespace vrix
