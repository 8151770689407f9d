#include "makers/win32/style.h"

#include <cmath>

#include "makers/win32/library_function.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

bool highContrastOn() {
    HIGHCONTRASTA contrast{};
    contrast.cbSize = sizeof(contrast);
    SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0);
    return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool isDark(Colour colour) { return (colour & 0xFFu) + ((colour >> 8) & 0xFFu) + ((colour >> 16) & 0xFFu) < 3 * 128; }

LOGFONTW messageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    return metrics.lfMessageFont;
}

// The message font at `share` of its size.
Owned<HFONT> fontAt(int dpi, double share, int weight) {
    LOGFONTW font = messageFont();
    font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * share * dpi / systemDpi()));
    if (weight != 0) font.lfWeight = weight;
    return Owned<HFONT>(CreateFontIndirectW(&font));
}

int screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

}  // namespace

Palette currentPalette() {
    Palette colours{highContrastOn() || isDark(GetSysColor(COLOR_WINDOW)),
                    GetSysColor(COLOR_WINDOW),
                    GetSysColor(COLOR_WINDOWTEXT),
                    GetSysColor(COLOR_BTNFACE),
                    GetSysColor(COLOR_BTNTEXT),
                    GetSysColor(COLOR_GRAYTEXT),
                    GetSysColor(COLOR_WINDOWTEXT),
                    GetSysColor(COLOR_WINDOWTEXT),
                    GetSysColor(COLOR_WINDOWTEXT),
                    GetSysColor(COLOR_WINDOWTEXT),
                    GetSysColor(COLOR_HIGHLIGHT),
                    GetSysColor(COLOR_WINDOWTEXT)};
    if (!colours.systemColoursOnly) {
        colours.edge = mixed(colours.window, colours.text, 0.5);
        colours.rule = mixed(colours.window, colours.text, 0.16);
        colours.heading = RGB(12, 62, 92);
        colours.secondary = mixed(colours.window, colours.text, 0.66);
        colours.accent = RGB(14, 101, 148);
        colours.warning = RGB(176, 38, 44);
    }
    return colours;
}

int systemDpi() {
    static const auto ask = libraryFunction<UINT(WINAPI*)()>("user32.dll", "GetDpiForSystem");
    return ask != nullptr ? static_cast<int>(ask()) : screenDpi();
}

int dpiOf(HWND window) {
    static const auto ask = libraryFunction<UINT(WINAPI*)(HWND)>("user32.dll", "GetDpiForWindow");
    return ask != nullptr ? static_cast<int>(ask(window)) : systemDpi();
}

Style::Style(int dpi)
    : dpi_(dpi),
      body_(fontAt(dpi, 1, 0)),
      heading_(fontAt(dpi, 1.45, FW_SEMIBOLD)),
      subheading_(fontAt(dpi, 1.15, 0)),
      section_(fontAt(dpi, 1, FW_BOLD)),
      product_(fontAt(dpi, 2, FW_SEMIBOLD)),
      lineBoxHeight_(lineHeight(body_.get()) + 6 + px(2)),
      palette_(currentPalette()) {}

RECT Style::px(const Bounds& bounds) const {
    return {px(bounds.left), px(bounds.top), px(bounds.left + bounds.width), px(bounds.top + bounds.height)};
}

HFONT Style::font(Look look) const {
    switch (look) {
        case Look::heading: return heading_.get();
        case Look::subheading: return subheading_.get();
        case Look::section: return section_.get();
        case Look::product: return product_.get();
        case Look::body: break;
    }
    return body_.get();
}

void draw(HDC dc, int left, int top, const Canvas& canvas) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = canvas.width();
    info.bmiHeader.biHeight = -canvas.height();  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const auto rows = static_cast<UINT>(canvas.height());
    SetDIBitsToDevice(dc, left, top, static_cast<DWORD>(canvas.width()), rows, 0, 0, 0, rows, canvas.pixels().data(),
                      &info, DIB_RGB_COLORS);
}

int lineHeight(HFONT font) {
    const HDC screen = GetDC(nullptr);
    TEXTMETRICA metrics{};
    {
        const Selected selected(screen, font);
        GetTextMetricsA(screen, &metrics);
    }
    ReleaseDC(nullptr, screen);
    return metrics.tmHeight;
}

std::string shortened(HFONT font, const std::string& text, int width) {
    const HDC screen = GetDC(nullptr);
    const std::wstring whole = wide(text);
    std::wstring fitting = whole;
    fitting.resize(whole.size() + 4);  // the platform may write that much behind it
    {
        const Selected selected(screen, font);
        RECT area{0, 0, width, 0};
        DrawTextW(screen, fitting.data(), static_cast<int>(whole.size()), &area,
                  DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    }
    ReleaseDC(nullptr, screen);
    fitting.resize(fitting.find(L'\0'));
    return fitting == whole ? text : narrow(fitting);
}

SIZE measured(HDC dc, const std::string& text, int width, UINT format) {
    RECT area{0, 0, width, 0};
    const std::wstring line = wide(text);
    DrawTextW(dc, line.c_str(), static_cast<int>(line.size()), &area, format | DT_CALCRECT);
    return {area.right, area.bottom};
}

}  // namespace vrix
