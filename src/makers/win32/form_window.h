#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "makers/win32/keyboard.h"
#include "makers/win32/native_window.h"
#include "makers/win32/style.h"
#include "makers/win32/tips.h"

namespace vrix {

class ControlWindow;
class FrameWindow;
class Win32Screen;

// The native window of one form, with the windows of its controls. It fills the frame in which it is shown.
class FormWindow final : public NativeWindow {
public:
    // Makes the window, still hidden, in the frame that is to show it.
    FormWindow(Win32Screen& screen, Form& form, FrameWindow& frame);
    ~FormWindow() override { destroy(); }  // and with it the windows of its controls

    Form& form() const { return form_; }
    FrameWindow& frame() const { return *frame_; }
    using NativeWindow::screen;
    const Style& style() const { return *style_; }
    Keyboard& keyboard() { return keyboard_; }
    // The windows of its controls, in reading order.
    const std::vector<std::unique_ptr<ControlWindow>>& controls() const { return controls_; }
    // The native number for the next control.
    UINT_PTR nextId() const { return firstId + controls_.size(); }

    bool onScreen() const;
    // Whether the user can do anything here: not on a disabled page, nor while a message box is up.
    bool takesInput() const;

    // For the frame: puts the page into it, still hidden; shows it in front of the other pages there, or hides it.
    void moveInto(FrameWindow& frame);
    void setShown(bool shown);
    // Sets the style, and lays the page out again if it changed.
    void take(std::shared_ptr<const Style> style);
    // The form was enabled or disabled.
    void takeEnabled();

    // The window of a control; for the label of a button, that of the button. Null for a frame, which has none.
    ControlWindow* find(const Control& control) const;
    // Shows what changed in a control. A change of a frame concerns all controls on it, so all are brought up to date.
    void update(const Control& control);

    // At the end of an event: sets the focus. `wanted` is the control that is to have it, or null.
    void settle(const Control* wanted);
    // Hit test: the control under the pointer, or null; for the caption of a picture, that picture.
    ControlWindow* underPointer() const;
    // Tells all controls whether the pointer is on them. It may have moved, or what it is on may have changed.
    ControlWindow* followPointer();

    Tips& tips() { return tips_; }

    // What a control stands on: the platform's number of that colour, and the colour itself.
    int surface(const Control& control) const;
    Colour surfaceColour(const Control& control) const { return GetSysColor(surface(control)); }

private:
    static constexpr UINT_PTR firstId = 100;  // 1 and 2 stand for Enter and Esc
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT colours(HDC dc, const ControlWindow& window) const;

    void makeControls();
    void layOut();
    void notified(ControlWindow& window, int code);
    void paint(HDC dc, const RECT& area) const;

    Form& form_;
    FrameWindow* frame_;
    Keyboard keyboard_;
    std::shared_ptr<const Style> style_;
    std::vector<std::unique_ptr<ControlWindow>> controls_;
    std::unordered_map<const Control*, ControlWindow*> byControl_;
    int bandBottom_ = 0;  // the lower edge of the title band, in 1/96 inch; 0 where there is none
    int rowTop_ = 0;      // the upper edge of the row of buttons; 0 where there is none
    Tips tips_{handle()};
};

}  // namespace vrix
