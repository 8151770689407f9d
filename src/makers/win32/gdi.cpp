#include "makers/win32/gdi.h"

#include <algorithm>

namespace vrix {

// The bitmap is a cache for the program's life, and grows to the largest area. Its pixels lie in the program's own
// memory: so drawing needs no calls into another process.
HDC Buffer::bitmapFor(const RECT& area) {
    static const HDC dc = CreateCompatibleDC(nullptr);
    static SIZE size{};
    const LONG width = area.right - area.left;
    const LONG height = area.bottom - area.top;
    if (width > size.cx || height > size.cy) {
        size = {std::max(width, size.cx), std::max(height, size.cy)};
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};  // top-down rows
        void* pixels = nullptr;
        DeleteObject(SelectObject(dc, CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0)));
    }
    return dc;
}

}  // namespace vrix
