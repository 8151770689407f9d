#include "makers/win32/win32_screen.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "forms/event.h"
#include "forms/form.h"
#include "forms/timer.h"
#include "makers/win32/control_window.h"
#include "makers/win32/form_window.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

LRESULT CALLBACK timerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* screen = reinterpret_cast<Win32Screen*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message != WM_TIMER || screen == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    const Timer& timer = *reinterpret_cast<const Timer*>(wParam);
    if (timer.enabled() && timer.onTimer) screen->event(timer.onTimer);
    return 0;
}

HWND makeTimerWindow(Win32Screen& screen) {
    WNDCLASSA kind{};
    kind.lpfnWndProc = &timerProcedure;
    kind.hInstance = GetModuleHandleA(nullptr);
    kind.lpszClassName = "VrixTimers";
    RegisterClassA(&kind);
    const HWND window =
        CreateWindowA(kind.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, kind.hInstance, nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&screen));
    return window;
}

}  // namespace

Win32Screen::Win32Screen() : timers_(makeTimerWindow(*this)) {}

Win32Screen::~Win32Screen() { DestroyWindow(timers_); }

void Win32Screen::formChanged(Form& form) {
    if (std::find(changedForms_.begin(), changedForms_.end(), &form) == changedForms_.end()) {
        changedForms_.push_back(&form);
    }
}

void Win32Screen::controlChanged(Control& control) {
    if (windowOf(control.form()) != nullptr) changedControls_.insert(&control);
}

void Win32Screen::rowsChanged(Control& list, RowChange change) {
    const FormWindow* form = windowOf(list.form());
    if (form == nullptr) return;
    if (ControlWindow* window = form->find(list)) window->rowsChanged(change);
    changedControls_.insert(&list);
}

void Win32Screen::timerChanged(Timer& timer) {
    const auto id = reinterpret_cast<UINT_PTR>(&timer);
    if (timer.enabled()) {
        SetTimer(timers_, id, static_cast<UINT>(timer.interval()), nullptr);
    } else {
        KillTimer(timers_, id);
    }
}

Answer Win32Screen::ask(const std::string& text, const std::string& title, Buttons buttons) {
    int answer = 0;
    modal([&](HWND owner) {
        const UINT kind = buttons == Buttons::ok ? MB_OK : MB_OKCANCEL;
        answer = MessageBoxW(owner, wide(text).c_str(), wide(title).c_str(),
                             kind | (owner == nullptr ? MB_SETFOREGROUND : 0));
    });
    return answer == IDOK || buttons == Buttons::ok ? Answer::ok : Answer::cancel;
}

Size Win32Screen::screenSize() {
    const int dpi = systemDpi();
    return {MulDiv(GetSystemMetrics(SM_CXSCREEN), 96, dpi), MulDiv(GetSystemMetrics(SM_CYSCREEN), 96, dpi)};
}

void Win32Screen::quit() {
    ended_ = true;
    PostQuitMessage(0);
}

int Win32Screen::run() {
    event([] {});  // for the forms that were shown before
    MSG message;
    while (!ended_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
        const HWND top = GetAncestor(message.hwnd, GA_ROOT);
        const auto form = std::find_if(forms_.begin(), forms_.end(),
                                       [&](const auto& entry) { return entry.second->handle() == top; });
        if (form != forms_.end() && form->second->keyboard().translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    ended_ = true;
    forms_.clear();
    return 0;
}

void Win32Screen::event(const std::function<void()>& event) {
    if (quiet_ || ended_) return;
    runEvent(*this, [&] {
        event();
        if (!ended_) catchUp();
    });
    onPause();
}

void Win32Screen::quietly(const std::function<void()>& change) {
    const bool before = std::exchange(quiet_, true);
    change();
    quiet_ = before;
}

void Win32Screen::modal(const std::function<void(HWND)>& dialog) {
    onPause();
    catchUp();
    FormWindow* owner = active();
    for (const auto& [form, window] : forms_) EnableWindow(window->handle(), window.get() == owner);
    const bool quietBefore = std::exchange(quiet_, false);
    dialog(owner == nullptr ? nullptr : owner->handle());
    quiet_ = quietBefore;
    for (const auto& [form, window] : forms_) formChanged(*form);
}

void Win32Screen::catchUp() {
    const auto controls = std::exchange(changedControls_, {});
    const auto forms = std::exchange(changedForms_, {});
    quietly([&] {
        for (const Control* control : controls) windowOf(control->form())->update(*control);
        for (Form* form : forms) {
            if (!form->visible()) continue;
            if (windowOf(*form) == nullptr) forms_.emplace(form, std::make_unique<FormWindow>(*this, *form));
            windowOf(*form)->show();
        }
        for (Form* form : forms) {
            if (form->visible()) continue;
            if (FormWindow* window = windowOf(*form)) window->hide();
        }
    });
}

FormWindow* Win32Screen::windowOf(Form& form) const {
    const auto found = forms_.find(&form);
    return found == forms_.end() ? nullptr : found->second.get();
}

FormWindow* Win32Screen::active() const {
    FormWindow* any = nullptr;
    for (const auto& [form, window] : forms_) {
        if (!window->onScreen()) continue;
        if (window->handle() == GetActiveWindow()) return window.get();
        any = window.get();
    }
    return any;
}

}  // namespace vrix
