#include "makers/win32/keyboard.h"

#include <algorithm>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/inputs.h"
#include "makers/win32/control_window.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

// The arrow keys move among neighbours of these kinds.
bool inOneGroup(const Control& one, const Control& next) {
    return (is<ImageButton>(one) && is<ImageButton>(next)) || (is<OptionButton>(one) && is<OptionButton>(next));
}

}  // namespace

void Keyboard::add(ControlWindow& window) {
    if (!controls_.empty() && inOneGroup(controls_.back()->control(), window.control())) window.joinGroup();
    if (window.control().name() == "NextBtn") default_ = &window;
    controls_.push_back(&window);
}

bool Keyboard::isDefault(const Control& control) const {
    return default_ != nullptr && &default_->control() == &control;
}

bool Keyboard::translate(MSG& message) {
    if (message.hwnd != page_ && !IsChild(page_, message.hwnd)) return false;
    // No control of a page has an access key, even if its text holds a "&".
    if (message.message == WM_CHAR || message.message == WM_SYSCHAR) return false;
    return takesKey(message) || IsDialogMessageW(page_, &message) != FALSE;
}

// Handles Enter, and stops a key that is still held from the page before.
bool Keyboard::takesKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || (message.wParam != VK_RETURN && message.wParam != VK_SPACE)) return false;
    const bool held = isHeld(message.lParam);
    const ControlWindow* focused = message.hwnd == page_ ? nullptr : ControlWindow::of(message.hwnd);
    const bool enter = message.wParam == VK_RETURN && (focused == nullptr || !focused->wantsEnter());
    if (enter && !held) pressEnter();
    return enter || (held && (focused == nullptr || !focused->takesText()));
}

void Keyboard::pressEnter() {
    const HWND focused = GetFocus();
    if (IsChild(page_, focused) && ControlWindow::of(focused)->press()) return;
    if (default_ != nullptr && default_->takesFocus()) default_->press();
}

std::optional<LRESULT> Keyboard::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case DM_GETDEFID:
            if (default_ == nullptr) return 0;
            return MAKELONG(GetDlgCtrlID(default_->handle()), DC_HASDEFID);
        case DM_SETDEFID: return TRUE;
        case WM_NEXTDLGCTL:
            focus(LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                      : GetNextDlgTabItem(page_, GetFocus(), wParam != 0));
            return 0;
        default: return std::nullopt;
    }
}

void Keyboard::restoreFocus() {
    const LONG state = lastFocus_ == nullptr ? 0 : GetWindowLongA(lastFocus_, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED);
    if (state == WS_VISIBLE) {
        screen_.quietly([&] { SetFocus(lastFocus_); });
    } else if (const ControlWindow* first = firstInput()) {
        focus(first->handle());
    }
}

void Keyboard::moveFocusFrom(HWND control) {
    const HWND next = GetNextDlgTabItem(page_, control, FALSE);
    SetFocus(next == nullptr || next == control ? page_ : next);
}

// Sets the focus as Tab does: the text of an input is selected.
void Keyboard::focus(HWND control) {
    screen_.quietly([&] {
        SetFocus(control);
        if ((SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageA(control, EM_SETSEL, 0, -1);
    });
}

// The inputs of a page lie on frames. A page without any begins at its default button, or at its first control.
ControlWindow* Keyboard::firstInput() const {
    const auto first = [&](bool onFrame) {
        const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const ControlWindow* window) {
            const Control& control = window->control();
            return window->takesFocus() && (!onFrame || &control.parent() != &control.form());
        });
        return found == controls_.end() ? nullptr : *found;
    };
    if (ControlWindow* input = first(true)) return input;
    return default_ != nullptr && default_->takesFocus() ? default_ : first(false);
}

}  // namespace vrix
