#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "makers/win32/form_window.h"

namespace vrix {

// What a control's native window is made as.
struct WindowKind {
    const char* className;
    DWORD style;
    DWORD extendedStyle = 0;
};

// The native window of one control. This base does what all have in common.
class ControlWindow {
public:
    ControlWindow(FormWindow& owner, Control& control, const WindowKind& kind);
    virtual ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    // The object behind a control's window handle.
    static ControlWindow* of(HWND handle);

    HWND handle() const { return handle_; }
    const Control& control() const { return control_; }
    bool shown() const;
    bool takesFocus() const;

    // Goes on with the group of the control before it, in which the arrow keys move.
    void joinGroup() { setStyle(WS_GROUP, false); }

    // Takes place and font at the form's scale.
    virtual void layout();
    // Takes from the control what may have changed, but for the rows of a list.
    virtual void update();
    // Takes one change of the rows of a list.
    virtual void rowsChanged(RowChange /*change*/, int /*row*/) {}

    // The native control reports something, or wants a row drawn.
    virtual void notified(int /*code*/) {}
    virtual void drawRow(const DRAWITEMSTRUCT&) {}
    // Presses the control by keyboard. False for one that cannot be pressed.
    virtual bool press() { return false; }
    // Enter belongs to the control at present, not to the page.
    virtual bool wantsEnter() const { return false; }

protected:
    FormWindow& owner() const { return owner_; }
    virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam);
    virtual RECT place() const;
    virtual bool enabled() const;

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT send(UINT message, WPARAM wParam, const std::string& text) const;
    void moveTo(const RECT& place);
    void setText(const std::string& text);  // if it is another one
    // A line of text as it fits into a width. One that does not fit is shown whole in a tip.
    std::string shortenedTo(int width, const std::string& text) const;
    void setStyle(LONG bits, bool on);
    // Runs one event of the program.
    void event(const std::function<void()>& event) const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    FormWindow& owner_;
    Control& control_;
    HWND handle_;
    WNDPROC original_;
    RECT placed_{};
};

std::string windowText(HWND window);

// Makes the window of a control, or nothing for a control that has none of its own.
std::unique_ptr<ControlWindow> makeControlWindow(FormWindow& owner, Control& control);

}  // namespace vrix
