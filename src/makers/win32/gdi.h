#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace vrix {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

// Owns a font, brush, pen or bitmap.
template <class Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

// Selects an object into a device context. The destructor selects the one before again.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ before_;
};

// A bitmap in memory to draw on. The destructor copies it to the target as a whole, so nothing flickers. All share one
// bitmap, so there is one at a time.
class Buffer {
public:
    Buffer(HDC target, const RECT& area) : target_(target), area_(area), dc_(bitmapFor(area)) {
        SetViewportOrgEx(dc_, -area.left, -area.top, nullptr);
    }
    ~Buffer() {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_, area_.left,
               area_.top, SRCCOPY);
    }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    HDC dc() const { return dc_; }

private:
    static HDC bitmapFor(const RECT& area);

    HDC target_;
    RECT area_;
    HDC dc_;
};

}  // namespace vrix
