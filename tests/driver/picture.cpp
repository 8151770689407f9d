#include "picture.h"

#include <objidl.h>

#include <gdiplus.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "screen.h"

namespace vrix::driver {

namespace {

// One look at a part of the screen, pixel by pixel.
struct Look {
    int width;
    int height;
    std::vector<std::uint32_t> pixels;

    explicit Look(const RECT& area) : width(area.right - area.left), height(area.bottom - area.top) {
        const HDC screen = GetDC(nullptr);
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
        SelectObject(memory, before);
        pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        BITMAPINFO form{};
        form.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(), &form, DIB_RGB_COLORS);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }
};

// What a window draws behind our last event is on the screen when several looks in a row are alike. A screen that does
// not come to rest is taken as it is.
Look lookAtRest(const RECT& area) {
    Look last(area);
    for (int alike = 0, looks = 0; alike < 4 && looks < 100; ++looks) {
        Sleep(30);
        Look next(area);
        alike = next.pixels == last.pixels ? alike + 1 : 0;
        last = std::move(next);
    }
    return last;
}

}  // namespace

void takePicture(const RECT& area, const std::string& file) {
    Look look = lookAtRest(area);
    if (std::all_of(look.pixels.begin(), look.pixels.end(), [&](auto pixel) { return pixel == look.pixels.front(); })) {
        throw StepFailure("the window shows nothing but one colour");
    }
    static const ULONG_PTR session = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token, &input, nullptr);
        return token;
    }();
    (void)session;
    constexpr CLSID png{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    Gdiplus::Bitmap bitmap(look.width, look.height, look.width * 4, PixelFormat32bppRGB,
                           reinterpret_cast<BYTE*>(look.pixels.data()));
    if (bitmap.Save(std::wstring(file.begin(), file.end()).c_str(), &png, nullptr) != Gdiplus::Ok) {
        throw StepFailure("the picture " + file + " cannot be written");
    }
}

}  // namespace vrix::driver
