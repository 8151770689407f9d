// Draws the program's icon from the shapes of the mark on its windows, and writes it in all its sizes:
//     wine build/win64/make_icon.exe src/program/vrix.ico

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <iterator>
#include <string>

#include "makers/win32/pictures.h"

namespace {

using Pixels = std::vector<std::uint32_t>;  // rows from the top, each pixel 0xaarrggbb

std::string bytesOf(const void* data, std::size_t size) { return {static_cast<const char*>(data), size}; }

Pixels onGround(int side, vrix::Colour ground) {
    vrix::Palette palette{};
    palette.window = RGB(255, 255, 255);
    vrix::Canvas canvas(side, side, side / vrix::artSize, ground);
    drawRing(canvas, palette);
    return canvas.pixels();
}

// What the mark leaves free of a pixel is how far its colours on white and on black lie apart.
Pixels drawn(int side) {
    Pixels pixels = onGround(side, 0);
    const Pixels onWhite = onGround(side, RGB(255, 255, 255));
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::uint32_t black = pixels[i];
        const std::uint32_t covered = 255 - ((onWhite[i] & 0xFF) - (black & 0xFF));
        pixels[i] = covered << 24;
        for (const int part : {0, 8, 16}) {
            if (covered != 0) pixels[i] |= ((black >> part & 0xFF) * 255 + covered / 2) / covered << part;
        }
    }
    return pixels;
}

std::string asPng(Pixels pixels, int side) {
    ULONG_PTR session = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&session, &input, nullptr);
    constexpr CLSID png{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    IStream* stream = nullptr;
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    Gdiplus::Bitmap bitmap(side, side, side * 4, PixelFormat32bppARGB, reinterpret_cast<BYTE*>(pixels.data()));
    bitmap.Save(stream, &png, nullptr);
    STATSTG facts{};
    stream->Stat(&facts, STATFLAG_NONAME);
    HGLOBAL memory = nullptr;
    GetHGlobalFromStream(stream, &memory);
    std::string bytes = bytesOf(GlobalLock(memory), facts.cbSize.LowPart);
    stream->Release();
    return bytes;
}

// Rows from below, and behind them a mask that hides nothing.
std::string asBitmap(const Pixels& pixels, int side) {
    BITMAPINFOHEADER header{sizeof header, side, 2 * side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::string bytes = bytesOf(&header, sizeof header);
    for (int row = side; row-- > 0;) bytes += bytesOf(&pixels[static_cast<std::size_t>(row * side)], side * 4u);
    return bytes + std::string(static_cast<std::size_t>((side + 31) / 32 * 4 * side), '\0');
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) return 2;
    constexpr WORD sides[]{16, 20, 24, 32, 40, 48, 64, 256};
    constexpr WORD kind[]{0, 1, std::size(sides)};
    std::string entries = bytesOf(kind, sizeof kind);
    std::string images;
    for (const WORD side : sides) {
        const std::string image = side < 64 ? asBitmap(drawn(side), side) : asPng(drawn(side), side);
        const auto low = static_cast<BYTE>(side);  // 0 for 256
        const BYTE start[]{low, low, 0, 0, 1, 0, 32, 0};
        const DWORD place[]{static_cast<DWORD>(image.size()),
                            static_cast<DWORD>(sizeof kind + 16 * std::size(sides) + images.size())};
        entries += bytesOf(start, sizeof start) + bytesOf(place, sizeof place);
        images += image;
    }
    const HANDLE file = CreateFileW(arguments[1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::string icon = entries + images;
    DWORD written = 0;
    const BOOL done = WriteFile(file, icon.data(), static_cast<DWORD>(icon.size()), &written, nullptr);
    CloseHandle(file);
    return done ? 0 : 1;
}
