#include "makers/win32/tips.h"

#include <commctrl.h>

#include "makers/win32/library_function.h"

namespace vrix {

namespace {

HWND makeTipWindow(HWND owner) {
    // Few windows need a tip, so the library is loaded at the first.
    constexpr INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES};
    using Init = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto init = libraryFunction<Init>("comctl32.dll", "InitCommonControlsEx");
    if (init == nullptr || init(&classes) == FALSE) return nullptr;
    return CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                           owner, nullptr, GetModuleHandleA(nullptr), nullptr);
}

}  // namespace

void Tips::set(HWND owner, HWND child, const std::string& text) {
    const bool known = tools_.contains(child);
    if (text.empty() && !known) return;
    if (window_ == nullptr) window_ = makeTipWindow(owner);
    std::string shown = text;
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof(tool);
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(child);
    tool.lpszText = shown.data();
    const auto send = [&](UINT message) { SendMessageA(window_, message, 0, reinterpret_cast<LPARAM>(&tool)); };
    if (text.empty()) {
        send(TTM_DELTOOLA);
        tools_.erase(child);
        return;
    }
    send(known ? TTM_UPDATETIPTEXTA : TTM_ADDTOOLA);
    tools_.insert(child);
    SendMessageA(window_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
}

}  // namespace vrix
