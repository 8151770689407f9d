#pragma once

#include <windows.h>

#include "common/fixed.h"

namespace vrix {

class Win32Screen;

// The platform's class and styles for a window.
struct WindowKind {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle = 0;
};

// The classes of the program's own windows.
inline constexpr const wchar_t* frameClass = L"VrixFrame";
inline constexpr const wchar_t* formClass = L"VrixForm";

// A native window whose messages its object handles. The object destroys the window, unless the parent has destroyed it
// before.
class NativeWindow : Fixed {
public:
    // The object of a window; null for a window that has none.
    static NativeWindow* of(HWND window);

    HWND handle() const { return handle_; }
    void redraw() const { InvalidateRect(handle_, nullptr, FALSE); }

protected:
    // Makes the window. Throws std::runtime_error where the platform refuses it.
    NativeWindow(Win32Screen& screen, const WindowKind& kind, HWND parent, const RECT& place = {}, UINT_PTR id = 0);
    virtual ~NativeWindow() { destroy(); }
    // For the destructor of a class that handles messages: destroys the window, so no more messages come.
    void destroy();

    Win32Screen& screen() const { return screen_; }
    // Whether a message is handled at present, and not answered with 0.
    virtual bool takes(UINT /*message*/) const { return true; }
    // Handles a message. A class passes on to its base what it does not handle; this one passes it to the platform.
    virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LONG_PTR styleBits() const { return GetWindowLongPtrW(handle_, GWL_STYLE); }
    bool focused() const { return GetFocus() == handle_; }
    RECT clientArea() const;
    // Moves the window, if that is another place than it was given last.
    void moveTo(const RECT& place);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Win32Screen& screen_;
    HWND handle_;
    WNDPROC original_;  // of the window's class

protected:
    RECT placed_;  // in its parent
};

// The outer rectangle of a window on the screen.
RECT areaOf(HWND window);
// The part of a monitor outside the taskbar and other desktop bars.
RECT workAreaOf(HMONITOR monitor);

}  // namespace vrix
