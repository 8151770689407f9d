#include <objidl.h>
#include <windows.h>

#include <gdiplus.h>

#include <algorithm>
#include <cstdint>

#include "screen.h"

namespace vrix::driver {

namespace {

using Pixels = std::vector<std::uint32_t>;

Pixels lookAt(const RECT& area, int width, int height) {
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, before);
    BITMAPINFO form{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(), &form, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

}  // namespace

void takePicture(const RECT& area, const std::string& file) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    // What the program draws behind our last event is there when several looks in a row are alike. A screen that does
    // not come to rest is taken as it is.
    Pixels pixels = lookAt(area, width, height);
    for (int alike = 0, looks = 0; alike < 4 && looks < 100; ++looks) {
        Sleep(30);
        Pixels next = lookAt(area, width, height);
        alike = next == pixels ? alike + 1 : 0;
        pixels = std::move(next);
    }
    if (std::count(pixels.begin(), pixels.end(), pixels.front()) == static_cast<std::ptrdiff_t>(pixels.size())) {
        throw StepFailure("the window shows nothing but one colour");
    }
    ULONG_PTR session = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&session, &input, nullptr);
    constexpr CLSID png{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    Gdiplus::Bitmap bitmap(width, height, width * 4, PixelFormat32bppRGB, reinterpret_cast<BYTE*>(pixels.data()));
    const std::wstring name(file.begin(), file.end());
    if (bitmap.Save(name.c_str(), &png, nullptr) != Gdiplus::Ok) throw StepFailure("no picture can be kept as " + file);
}

}  // namespace vrix::driver
