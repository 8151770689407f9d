#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "common/fixed.h"

namespace vrix {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

// Owns a font, brush, pen or bitmap.
template <class Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

// Selects an object into a device context. The destructor restores the one before.
class Selected : Fixed {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, before_); }

private:
    HDC dc_;
    HGDIOBJ before_;
};

// The device context of a window, or of the screen for null.
class WindowDc : Fixed {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }

    operator HDC() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

// The painting of a window, for WM_PAINT.
class Painting : Fixed {
public:
    explicit Painting(HWND window) : window_(window), dc_(BeginPaint(window, &job_)) {}
    ~Painting() { EndPaint(window_, &job_); }

    operator HDC() const { return dc_; }

private:
    PAINTSTRUCT job_{};
    HWND window_;
    HDC dc_;
};

// Fills a rectangle with a colour.
inline void fill(HDC dc, const RECT& area, COLORREF colour) {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

// A back buffer. The destructor copies it to the target as a whole, so nothing flickers. All share one bitmap, so there
// is one at a time.
class Buffer : Fixed {
public:
    Buffer(HDC target, const RECT& area) : target_(target), area_(area), dc_(bitmapFor(area)) {
        SetViewportOrgEx(dc_, -area.left, -area.top, nullptr);
    }
    ~Buffer() {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_, area_.left,
               area_.top, SRCCOPY);
    }

    HDC dc() const { return dc_; }

private:
    static HDC bitmapFor(const RECT& area);

    HDC target_;
    RECT area_;
    HDC dc_;
};

}  // namespace vrix
