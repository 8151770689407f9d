#include "makers/win32/tips.h"

#include <commctrl.h>

#include "makers/win32/library_function.h"
#include "makers/win32/themed_controls.h"

namespace vrix {

namespace {

HWND makeTipWindow(HWND owner) {
    const ThemedControls themed;
    // Few windows need a tooltip, so the library is loaded for the first one.
    constexpr INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES};
    using Init = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto init = libraryFunction<Init>(L"comctl32.dll", "InitCommonControlsEx");
    if (init == nullptr || init(&classes) == FALSE) return nullptr;
    return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                           owner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

void Tips::set(HWND child, const std::wstring& text) {
    if (window_ == nullptr && text.empty()) return;
    if (window_ == nullptr) window_ = makeTipWindow(owner_);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner_;
    tool.uId = reinterpret_cast<UINT_PTR>(child);
    const auto send = [&](UINT message) { return SendMessageW(window_, message, 0, reinterpret_cast<LPARAM>(&tool)); };
    const bool known = send(TTM_GETTOOLINFOW) != 0;
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    if (!text.empty()) {
        send(known ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW);
    } else if (known) {
        send(TTM_DELTOOLW);
    }
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
}

void Tips::setAt(HWND child, LPARAM place, const std::wstring& text) {
    set(child, {});  // removes the tooltip of the place before
    set(child, text);
    MSG move{child, WM_MOUSEMOVE, 0, place, GetTickCount(), {}};
    SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&move));
}

}  // namespace vrix
