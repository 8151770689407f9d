#include "makers/win32/caption_room.h"

#include <array>
#include <vector>

#include "makers/win32/gdi.h"

namespace vrix {

namespace {

// The width of a dialog's caption with all that stands beside it.
int captionWidth(HWND box) {
    std::array<wchar_t, 256> caption{};
    const int length = GetWindowTextW(box, caption.data(), static_cast<int>(caption.size()));
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    const Owned<HFONT> font(CreateFontIndirectW(&metrics.lfCaptionFont));
    const HDC dc = GetDC(box);
    SIZE size{};
    {
        const Selected selected(dc, font.get());
        GetTextExtentPoint32W(dc, caption.data(), length, &size);
    }
    ReleaseDC(box, dc);
    constexpr int closeButtons = 3;  // the button is up to twice as wide as high; one more for the gaps
    return size.cx + closeButtons * metrics.iCaptionWidth + 2 * GetSystemMetrics(SM_CXSIZEFRAME);
}

RECT areaOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

std::vector<HWND> buttonsOf(HWND box) {
    std::vector<HWND> buttons;
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const bool shown = (GetWindowLongA(child, GWL_STYLE) & WS_VISIBLE) != 0;
        if (shown && (SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0) buttons.push_back(child);
    }
    return buttons;
}

// The row of buttons keeps its place: in the middle, or at the right edge.
void widen(HWND box) {
    const RECT area = areaOf(box);
    const int more = captionWidth(box) - (area.right - area.left);
    const std::vector<HWND> buttons = buttonsOf(box);
    if (more <= 0 || buttons.empty()) return;
    const LONG before = areaOf(buttons.front()).left - area.left;
    const LONG behind = area.right - areaOf(buttons.back()).right;
    const int shift = before > 2 * behind ? more : more / 2;
    for (const HWND button : buttons) {
        RECT part = areaOf(button);
        MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&part), 2);
        SetWindowPos(button, nullptr, part.left + shift, part.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    SetWindowPos(box, nullptr, area.left - more / 2, area.top, area.right - area.left + more, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// When a box has handled WM_INITDIALOG, everything on it has its place.
LRESULT CALLBACK handled(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && message.message == WM_INITDIALOG) widen(message.hwnd);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

CaptionRoom::CaptionRoom() : hook_(SetWindowsHookExA(WH_CALLWNDPROCRET, &handled, nullptr, GetCurrentThreadId())) {}

CaptionRoom::~CaptionRoom() { UnhookWindowsHookEx(hook_); }

}  // namespace vrix
