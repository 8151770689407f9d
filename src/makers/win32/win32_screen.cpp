#include "makers/win32/win32_screen.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "forms/event.h"
#include "forms/form.h"
#include "forms/timer.h"
#include "makers/win32/caption_room.h"
#include "makers/win32/control_window.h"
#include "makers/win32/form_window.h"
#include "makers/win32/frame_window.h"
#include "makers/win32/themed_controls.h"
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

// Keeps the current folder. A file dialog takes the program to the folder of the file, even if it is told not to.
class CurrentFolder {
public:
    CurrentFolder() : folder_(GetCurrentDirectoryW(0, nullptr), L'\0') {
        GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data());
    }
    ~CurrentFolder() { SetCurrentDirectoryW(folder_.c_str()); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::wstring folder_;
};

}  // namespace

void tell(const std::string& sentence, const std::string& title) {
    const ThemedControls themed;
    MessageBoxW(nullptr, wide(sentence, CP_UTF8).c_str(), wide(title).c_str(), MB_OK | MB_SETFOREGROUND);
}

Win32Screen::Win32Screen() : styles_(std::make_unique<Styles>()), timers_(makeTimerWindow(*this)) {}

Win32Screen::~Win32Screen() {
    ended_ = true;
    DestroyWindow(timers_);
}

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
        const CaptionRoom room;
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

void Win32Screen::quitByFailure() {
    exitCode_ = 1;
    quit();
}

int Win32Screen::run() {
    event([] {});  // for the forms that were shown before
    MSG message;
    while (!ended_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (takesKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    ended_ = true;
    frames_.clear();
    forms_.clear();
    return exitCode_;
}

bool Win32Screen::takesKey(MSG& message) const {
    return std::any_of(frames_.begin(), frames_.end(), [&](const auto& frame) {
        return frame->page() != nullptr && frame->page()->keyboard().translate(message);
    });
}

void Win32Screen::event(const std::function<void()>& event) {
    if (quiet_ || ended_) return;
    runEvent(*this, [&] {
        event();
        onPause();
        if (!ended_) catchUp();
    });
}

void Win32Screen::quietly(const std::function<void()>& change) {
    const bool before = std::exchange(quiet_, true);
    change();
    quiet_ = before;
}

void Win32Screen::modal(const std::function<void(HWND)>& dialog) {
    onPause();
    catchUp();
    const FrameWindow* owner = active();
    std::vector<HWND> others;
    for (const auto& frame : frames_) {
        if (frame.get() != owner && IsWindowEnabled(frame->handle())) others.push_back(frame->handle());
    }
    for (const HWND other : others) EnableWindow(other, FALSE);
    const bool quietBefore = std::exchange(quiet_, false);
    {
        const CurrentFolder kept;
        const ThemedControls themed;
        dialog(owner == nullptr ? nullptr : owner->handle());
    }
    quiet_ = quietBefore;
    for (const HWND other : others) EnableWindow(other, TRUE);
}

void Win32Screen::catchUp() {
    const auto controls = std::exchange(changedControls_, {});
    const auto forms = std::exchange(changedForms_, {});
    quietly([&] {
        for (const Control* control : controls) windowOf(control->form())->update(*control);
        for (Form* form : forms) {
            if (form->visible()) show(*form);
        }
        for (Form* form : forms) {
            if (!form->visible()) hide(*form);
        }
        const Control* wanted = std::exchange(wanted_, nullptr);
        for (const auto& frame : frames_) {
            if (frame->page() != nullptr) frame->page()->settle(wanted);
        }
    });
}

void Win32Screen::show(Form& form) {
    FormWindow* window = windowOf(form);
    if (window != nullptr && window->onScreen()) return window->takeEnabled();
    FrameWindow& frame = frameFor(form);
    if (window == nullptr) {
        window = forms_.emplace(&form, std::make_unique<FormWindow>(*this, form, frame)).first->second.get();
    }
    if (!comesBack(form)) window->keyboard().forgetFocus();
    window->takeEnabled();
    frame.show(*window);
}

void Win32Screen::hide(Form& form) {
    FormWindow* window = windowOf(form);
    if (window == nullptr) return;
    window->takeEnabled();
    if (window->onScreen()) window->frame().hide();
}

// The frame of a form that goes; else one that was left behind hidden; else a new one.
FrameWindow& Win32Screen::frameFor(const Form& form) {
    FrameWindow* free = nullptr;
    for (const auto& frame : frames_) {
        if (frame->border() != form.border()) continue;
        if (frame->page() == nullptr) free = frame.get();
        if (frame->page() != nullptr && !frame->page()->form().visible()) return *frame;
    }
    if (free != nullptr) return *free;
    return *frames_.emplace_back(std::make_unique<FrameWindow>(*this, form));
}

// Whether the form lies on the way that led to where the user is: then it comes back, as by Back or Exit. Otherwise it
// is the next step of the way.
bool Win32Screen::comesBack(const Form& form) {
    const auto place = std::find(way_.begin(), way_.end(), &form);
    const bool back = place != way_.end();
    way_.erase(back ? place + 1 : place, way_.end());
    if (!back) way_.push_back(&form);
    return back;
}

FormWindow* Win32Screen::windowOf(Form& form) const {
    const auto found = forms_.find(&form);
    return found == forms_.end() ? nullptr : found->second.get();
}

FrameWindow* Win32Screen::active() const {
    FrameWindow* any = nullptr;
    for (const auto& frame : frames_) {
        if (frame->page() == nullptr) continue;
        if (frame->active()) return frame.get();
        any = frame.get();
    }
    return any;
}

}  // namespace vrix
