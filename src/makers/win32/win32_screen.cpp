#include "makers/win32/win32_screen.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "forms/timer.h"
#include "makers/win32/control_window.h"
#include "makers/win32/form_window.h"
#include "makers/win32/frame_window.h"
#include "makers/win32/modal.h"
#include "makers/win32/wide_text.h"

namespace vrix {

// Receives the timers' messages and is never shown. The number of a timer is its address.
class TimerWindow final : public NativeWindow {
public:
    explicit TimerWindow(Win32Screen& screen) : NativeWindow(screen, {formClass, 0}, HWND_MESSAGE) {}

    void set(Timer& timer) {
        const auto id = reinterpret_cast<UINT_PTR>(&timer);
        if (timer.enabled()) {
            enabled_.insert(&timer);
            SetTimer(handle(), id, static_cast<UINT>(timer.interval()), nullptr);
        } else {
            enabled_.erase(&timer);
            KillTimer(handle(), id);
        }
    }

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_TIMER) return NativeWindow::message(message, wParam, lParam);
        const auto timer = enabled_.find(reinterpret_cast<Timer*>(wParam));
        if (timer != enabled_.end() && (*timer)->onTimer) screen().event((*timer)->onTimer);
        return 0;
    }

    std::set<Timer*> enabled_;
};

void tell(const std::string& sentence, const std::string& title) {
    const ThemedControls themed;
    MessageBoxW(nullptr, wide(sentence, CP_UTF8).c_str(), wide(title).c_str(), MB_OK | MB_SETFOREGROUND);
}

Win32Screen::Win32Screen() : styles_(std::make_unique<Styles>()), timers_(std::make_unique<TimerWindow>(*this)) {}

Win32Screen::~Win32Screen() { ended_ = true; }

void Win32Screen::formChanged(Form& form) {
    if (std::find(changedForms_.begin(), changedForms_.end(), &form) == changedForms_.end()) {
        changedForms_.push_back(&form);
    }
}

void Win32Screen::controlChanged(Control& control) {
    if (windowOf(control.form()) != nullptr) changedControls_.insert(&control);
}

void Win32Screen::rowsChanged(Control& list, RowChange change) {
    if (const FormWindow* form = windowOf(list.form())) form->find(list)->rowsChanged(change);
    controlChanged(list);
}

void Win32Screen::timerChanged(Timer& timer) { timers_->set(timer); }

Answer Win32Screen::ask(const std::string& text, const std::string& title, Buttons buttons) {
    const Modal modal(*this);
    const UINT kind = buttons == Buttons::ok ? MB_OK : MB_OKCANCEL;
    const int answer = MessageBoxW(modal.owner(), wide(text).c_str(), wide(title).c_str(),
                                   kind | (modal.owner() == nullptr ? MB_SETFOREGROUND : 0));
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

void Win32Screen::pause() {
    onPause();
    if (!ended_) catchUp();
}

void Win32Screen::catchUp() {
    const auto controls = std::exchange(changedControls_, {});
    const auto forms = std::exchange(changedForms_, {});
    const FlagGuard quiet = quietly();
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

// Reuses the frame of a form that is being hidden; else a frame that is hidden; else a new one.
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

// Whether the form is on the navigation stack: then it comes back, as by Back or Exit, and those above it are popped.
// Otherwise it is pushed.
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

HWND Win32Screen::active() const {
    HWND any = nullptr;
    for (const auto& frame : frames_) {
        if (frame->page() == nullptr) continue;
        if (frame->active()) return frame->handle();
        any = frame->handle();
    }
    return any;
}

std::vector<HWND> Win32Screen::windows() const {
    std::vector<HWND> all;
    for (const auto& frame : frames_) all.push_back(frame->handle());
    return all;
}

}  // namespace vrix
