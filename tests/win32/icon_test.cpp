#include <gtest/gtest.h>
#include <windows.h>

#include "makers/win32/pictures.h"

namespace vrix {

namespace {

using Pixels = std::vector<std::uint32_t>;

Pixels iconOn(Colour ground, int side) {
    const HANDLE icon =
        LoadImageA(nullptr, VRIX_EXPECTED "/../../src/program/vrix.ico", IMAGE_ICON, side, side, LR_LOADFROMFILE);
    BITMAPINFO info{{sizeof(BITMAPINFOHEADER), side, -side, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* pixels = nullptr;
    const Owned<HBITMAP> bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    const HDC dc = CreateCompatibleDC(nullptr);
    {
        const Selected selected(dc, bitmap.get());
        fill(dc, {0, 0, side, side}, ground);
        DrawIconEx(dc, 0, 0, static_cast<HICON>(icon), side, side, 0, nullptr, DI_NORMAL);
        GdiFlush();
    }
    DeleteDC(dc);
    DestroyIcon(static_cast<HICON>(icon));
    const auto* first = static_cast<std::uint32_t*>(pixels);
    return {first, first + side * side};
}

int difference(std::uint32_t a, std::uint32_t b) {
    int most = 0;
    for (const int part : {0, 8, 16}) {
        most = std::max(most, std::abs(static_cast<int>(a >> part & 0xFF) - static_cast<int>(b >> part & 0xFF)));
    }
    return most;
}

}  // namespace

TEST(IconTest, MatchesTheDrawnPictureOnAnyBackground) {
    Palette palette{};
    palette.window = RGB(255, 255, 255);
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 256}) {
        for (const Colour ground : {RGB(255, 255, 255), RGB(30, 60, 90)}) {
            SCOPED_TRACE(side);
            Canvas canvas(side, side, side / artSize, ground);
            drawRing(canvas, palette);
            const Pixels icon = iconOn(ground, side);
            int most = 0;
            for (std::size_t i = 0; i < icon.size(); ++i)
                most = std::max(most, difference(icon[i], canvas.pixels()[i]));
            EXPECT_LE(most, 3);  // rounded more than once
        }
    }
}

}  // namespace vrix
