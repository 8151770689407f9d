#include "makers/win32/style.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "makers/win32/library_function.h"

namespace vrix {

namespace {

bool highContrastOn() {
    HIGHCONTRASTW contrast{sizeof(contrast), 0, nullptr};
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0);
    return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool isDark(Colour colour) { return (colour & 0xFFu) + ((colour >> 8) & 0xFFu) + ((colour >> 16) & 0xFFu) < 3 * 128; }

LOGFONTW messageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    return metrics.lfMessageFont;
}

// The text size that the user has chosen, in per cent.
int chosenTextScale() {
    DWORD scale = 100;
    DWORD size = sizeof(scale);
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor", RRF_RT_REG_DWORD,
                 nullptr, &scale, &size);
    return static_cast<int>(std::clamp<DWORD>(scale, 100, 225));
}

// A font at `share` of its size.
Owned<HFONT> fontAt(int dpi, LOGFONTW font, double share, int weight) {
    font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * share * dpi / 96));
    if (weight != 0) font.lfWeight = weight;
    return Owned<HFONT>(CreateFontIndirectW(&font));
}

Palette currentPalette() {
    const auto system = [](int index) { return GetSysColor(index); };
    const Colour text = system(COLOR_WINDOWTEXT);
    Palette colours{.systemColoursOnly = highContrastOn() || isDark(system(COLOR_WINDOW)),
                    .window = system(COLOR_WINDOW),
                    .text = text,
                    .face = system(COLOR_BTNFACE),
                    .faceText = system(COLOR_BTNTEXT),
                    .greyText = system(COLOR_GRAYTEXT),
                    .edge = text,
                    .rule = text,
                    .heading = text,
                    .secondary = text,
                    .accent = system(COLOR_HIGHLIGHT),
                    .warning = text};
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

}  // namespace

bool Preferences::operator==(const Preferences& other) const {
    return std::memcmp(&font, &other.font, sizeof(font)) == 0 && textScale == other.textScale &&
           palette == other.palette;
}

// The platform's message font grows with the text size, and may be large without it. It is scaled back to the height
// for which the pages are made, and the excess counts as text size: so the page grows with its texts.
Preferences currentPreferences() {
    constexpr int plainHeight = 12;  // 9 points
    Preferences found{messageFont(), chosenTextScale(), currentPalette()};
    LONG& height = found.font.lfHeight;
    height = MulDiv(height, 96, systemDpi());
    const int share = MulDiv(std::abs(height), 100, plainHeight);
    if (share > 100) height = height < 0 ? -plainHeight : plainHeight;
    found.textScale = std::max(found.textScale, share);
    return found;
}

int systemDpi() {
    static const auto ask = libraryFunction<UINT(WINAPI*)()>(L"user32.dll", "GetDpiForSystem");
    return ask != nullptr ? static_cast<int>(ask()) : GetDeviceCaps(WindowDc(nullptr), LOGPIXELSX);
}

int dpiOf(HWND window) {
    static const auto ask = libraryFunction<UINT(WINAPI*)(HWND)>(L"user32.dll", "GetDpiForWindow");
    return ask != nullptr ? static_cast<int>(ask(window)) : systemDpi();
}

Style::Style(int dpi, const Preferences& preferences) : dpi_(dpi), palette_(preferences.palette) {
    struct Kind {
        double share;  // of the message font's
        int weight;    // 0 for the message font's
    };
    for (const auto& [share, weight] :
         {Kind{1, 0}, Kind{1.45, FW_SEMIBOLD}, Kind{1.15, 0}, Kind{1, FW_BOLD}, Kind{2, FW_SEMIBOLD}}) {
        auto font = fontAt(dpi, preferences.font, share, weight);
        const int height = measured(font.get(), L"0", 0, DT_SINGLELINE).cy;
        typefaces_.push_back({std::move(font), height});
    }
    lineBoxHeight_ = lineHeight(Look::body) + 6 + px(2);
}

RECT Style::px(const Bounds& bounds) const {
    return {px(bounds.left), px(bounds.top), px(bounds.left + bounds.width), px(bounds.top + bounds.height)};
}

std::shared_ptr<const Style> Styles::at(int dpi) {
    auto& style = made_[dpi];
    if (style == nullptr) style = std::make_shared<const Style>(dpi, preferences_);
    return style;
}

void Styles::renew() {
    preferences_ = currentPreferences();
    made_.clear();
}

void Styles::refresh() {
    if (!(preferences_ == currentPreferences())) renew();
}

void draw(HDC dc, int left, int top, const Canvas& canvas) {
    BITMAPINFO info{};  // top-down rows
    info.bmiHeader = {sizeof(info.bmiHeader), canvas.width(), -canvas.height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const auto rows = static_cast<UINT>(canvas.height());
    SetDIBitsToDevice(dc, left, top, static_cast<DWORD>(canvas.width()), rows, 0, 0, 0, rows, canvas.pixels().data(),
                      &info, DIB_RGB_COLORS);
}

std::wstring withMark(const std::wstring& text, char accessKey) {
    const auto key = static_cast<wchar_t>(accessKey);
    const auto exact = text.find(key);
    const auto place = exact != std::wstring::npos ? exact : text.find(static_cast<wchar_t>(key - L'A' + L'a'));
    std::wstring marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' || (i == place && key != L'\0')) marked += L'&';
        marked += text[i];
    }
    return marked;
}

void drawText(HDC dc, HFONT font, Colour colour, const std::wstring& text, RECT area, UINT format) {
    const Selected selected(dc, font);
    SetTextColor(dc, colour);
    SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format);
}

std::wstring shortened(HFONT font, const std::wstring& text, int width) {
    std::wstring fitting = text;
    fitting.resize(text.size() + 4);  // the platform may append that much
    const WindowDc screen(nullptr);
    const Selected selected(screen, font);
    RECT area{0, 0, width, 0};
    DrawTextW(screen, fitting.data(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    fitting.resize(fitting.find(L'\0'));
    return fitting;
}

SIZE measured(HFONT font, const std::wstring& text, int width, UINT format) {
    const WindowDc screen(nullptr);
    const Selected selected(screen, font);
    RECT area{0, 0, width, 0};
    DrawTextW(screen, text.c_str(), static_cast<int>(text.size()), &area, format | DT_CALCRECT);
    return {area.right, area.bottom};
}

}  // namespace vrix
