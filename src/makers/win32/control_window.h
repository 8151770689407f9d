#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "makers/win32/form_window.h"

namespace vrix {

// The platform's class and styles for the window of a control.
struct WindowKind {
    const char* className;
    DWORD style;
    DWORD extendedStyle = 0;
};

// The native window of one control: what all kinds of them have in common.
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
    bool live() const;  // shown, and not disabled
    bool takesFocus() const;

    // Puts the control into the group of the one before it. The arrow keys move within a group.
    void joinGroup() { setStyle(WS_GROUP, false); }

    // Sets place and font to the scale of the form.
    virtual void layout();
    // Shows what may have changed in the control.
    virtual void update();
    // The rows of a list changed; the next update() shows them.
    virtual void rowsChanged(RowChange /*change*/) {}

    // The native control reports something, or wants a row drawn.
    virtual void notified(int /*code*/) {}
    virtual void drawRow(const DRAWITEMSTRUCT&) {}
    // Presses the control by keyboard. False if it is not of a kind that can be pressed.
    virtual bool press() { return false; }
    // The control itself handles Enter at present, as an open list does.
    virtual bool wantsEnter() const { return false; }
    // The button that Enter presses from here at present. Null: the page's own.
    virtual const Control* enterPresses() const { return nullptr; }
    // What takes the focus in place of this control where it cannot keep it. Null: nothing in particular.
    virtual const Control* standIn() const { return nullptr; }
    // The pointer is on no control of the page any more, or the page was left.
    virtual void pointerGone() {}
    // Text can be typed into the control.
    virtual bool takesText() const { return false; }

protected:
    FormWindow& owner() const { return owner_; }
    virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam);
    virtual RECT place() const;
    virtual bool enabled() const;

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // A box for one line of text: as high as its font needs, in the middle of the control's place.
    RECT lineBox() const;
    void moveTo(const RECT& place);
    bool setText(const std::string& text);  // if it differs; tells whether it did
    // A line of text, cut if it is longer than a width. The whole of it then stands in a tip.
    std::string shortenedTo(int width, const std::string& text) const;
    void setStyle(LONG bits, bool on);
    // Runs one event of the program.
    void event(const std::function<void()>& event) const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT received(UINT message, WPARAM wParam, LPARAM lParam);
    FormWindow& owner_;
    Control& control_;
    RECT placed_;
    HWND handle_;
    WNDPROC original_;
};

std::wstring windowText(HWND window);

// Makes the window of a control. Null for a control without one: a frame, or the label of a button.
std::unique_ptr<ControlWindow> makeControlWindow(FormWindow& owner, Control& control);

}  // namespace vrix
