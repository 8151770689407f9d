#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "makers/win32/style.h"
#include "makers/win32/tips.h"

namespace vrix {

class ControlWindow;
class Win32Screen;

// The native window of one form, with the windows of its controls.
class FormWindow {
public:
    FormWindow(Win32Screen& screen, Form& form);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND handle() const { return handle_; }
    Win32Screen& screen() const { return screen_; }
    const Style& style() const { return *style_; }
    UINT_PTR nextId() const { return firstId + controls_.size(); }

    bool onScreen() const { return onScreen_; }
    // Comes up in front with the focus on its first input.
    void show();
    void hide();
    void takeEnabled();

    // The window of a control; that of the button for its label. Null for a frame.
    ControlWindow* find(const Control& control) const;
    // Takes what changed in a control, or in all controls where it has no window.
    void update(const Control& control);

    // Takes a message of the queue as keyboard use of the page: Tab, arrows, Enter. False leaves it to others.
    bool translate(MSG& message);
    // Moves the focus on from a control that is about to lose the right to it.
    void moveFocusFrom(HWND child);
    // Enter presses this control while the focus is on no other button.
    bool isDefault(const Control& control) const;

    // Says in a tip what a control has no room to show; nothing for an empty text.
    void explain(HWND child, const std::string& text) { tips_.set(handle_, child, text); }

    // What a control stands on, as the platform's colour index and as a colour.
    int surface(const Control& control) const;
    Colour surfaceColour(const Control& control) const { return GetSysColor(surface(control)); }

private:
    static constexpr UINT_PTR firstId = 100;  // 1 and 2 stand for Enter and Esc
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> dialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> colourMessage(HDC dc, HWND child) const;

    void makeControls();
    void layOut();
    void measureRegions();
    int fittingDpi(int dpi) const;
    RECT frameAt(int dpi) const;
    RECT workArea() const;
    void placeAt(int left, int top);
    void applyStyle(int dpi);
    void rescale(int dpi, int left, int top);
    ControlWindow* firstStop() const;
    void pressEnter();
    void pointerMoved(POINT point);
    void activated(bool active);
    void focus(HWND child);
    void paint(HDC dc, const RECT& area) const;

    Win32Screen& screen_;
    Form& form_;
    HWND handle_ = nullptr;
    std::unique_ptr<Style> style_;
    std::vector<std::unique_ptr<ControlWindow>> controls_;  // in reading order
    std::unordered_map<const Control*, ControlWindow*> byControl_;
    ControlWindow* default_ = nullptr;
    int bandBottom_ = 0;  // the title band lies above it, in 1/96 inch; 0 without a band and a row
    int rowTop_ = 0;      // the row of buttons lies below it
    bool onScreen_ = false;
    Tips tips_;
    HWND lastFocus_ = nullptr;  // what had the focus when the window was left
};

}  // namespace vrix
