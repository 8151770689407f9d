#include "makers/win32/keyboard.h"

#include <algorithm>

#include "forms/buttons.h"
#include "forms/inputs.h"
#include "forms/label.h"
#include "forms/pictures.h"
#include "makers/win32/control_window.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

bool isButton(const Control& control) { return is<ImageButton>(control) || is<TaskPicture>(control); }

bool cuesAlwaysShown() {
    BOOL always = FALSE;
    SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &always, 0);
    return always != FALSE;
}

std::optional<Key> formKey(const MSG& message) {
    const auto pressed = [&](UINT kind, WPARAM key) { return message.message == kind && message.wParam == key; };
    if (pressed(WM_SYSKEYDOWN, VK_UP)) return Key::altUp;
    if (pressed(WM_SYSKEYDOWN, VK_DOWN)) return Key::altDown;
    if (pressed(WM_KEYDOWN, VK_HOME)) return Key::home;
    if (pressed(WM_KEYDOWN, VK_END)) return Key::end;
    return std::nullopt;
}

bool isArrow(WPARAM key) { return key >= VK_LEFT && key <= VK_DOWN; }

bool overlap(int start, int length, int otherStart, int otherLength) {
    return start < otherStart + otherLength && otherStart < start + length;
}

// How far a control lies from another in the direction of an arrow key; 0 or less where it does not lie there.
int distance(const Bounds& from, const Bounds& to, WPARAM arrow) {
    const bool across = arrow == VK_LEFT || arrow == VK_RIGHT;
    const bool aligned =
        across ? overlap(from.top, from.height, to.top, to.height) : overlap(from.left, from.width, to.left, to.width);
    const int way = across ? to.left - from.left : to.top - from.top;
    if (!aligned) return 0;
    return arrow == VK_RIGHT || arrow == VK_DOWN ? way : -way;
}

}  // namespace

char shownKey(const Control& control) {
    const auto* label = dynamic_cast<const Label*>(&control);
    const Control* owner = label == nullptr ? &control : label->presses;
    return owner == nullptr ? '\0' : owner->accessKey();
}

Keyboard::Keyboard(FormWindow& page) : page_(page), cues_(cuesAlwaysShown()) {}

void Keyboard::takeFocusAway() { SetFocus(page_.handle()); }

bool Keyboard::isDefault(const Control& control) const {
    const ControlWindow* target = enterTarget();
    return target != nullptr && &target->control() == &control;
}

bool Keyboard::translate(MSG& message) {
    if (message.hwnd != page_.handle() && !IsChild(page_.handle(), message.hwnd)) return false;
    followAlt(message);
    // Only access keys that a control declares count, whatever "&" its text holds.
    if (message.message == WM_CHAR) return false;
    if (message.message == WM_SYSCHAR) return pressAccessKey(message);
    return takesShortcut(message) || takesKey(message) || takesArrow(message) ||
           IsDialogMessageW(page_.handle(), &message) != FALSE;
}

void Keyboard::followAlt(const MSG& message) {
    if (message.wParam != VK_MENU) return;
    if (message.message == WM_SYSKEYDOWN) showCues(true);
    if (message.message == WM_SYSKEYUP || message.message == WM_KEYUP) showCues(false);
}

// With the message that the platform sends to its own controls.
void Keyboard::showCues(bool shown) {
    if (shown == cues_ || cuesAlwaysShown()) return;
    SendMessageW(page_.handle(), WM_UPDATEUISTATE, MAKEWPARAM(shown ? UIS_CLEAR : UIS_SET, UISF_HIDEACCEL), 0);
}

bool Keyboard::pressAccessKey(const MSG& message) {
    const WPARAM letter = message.wParam >= 'a' && message.wParam <= 'z' ? message.wParam - 'a' + 'A' : message.wParam;
    ControlWindow* window =
        first([&](const Control& control) { return static_cast<WPARAM>(control.accessKey()) == letter; });
    if (letter == 0 || window == nullptr) return false;
    if (isHeld(message.lParam)) return true;
    focus(*window);
    window->press();
    return true;
}

bool Keyboard::takesShortcut(const MSG& message) {
    const auto key = formKey(message);
    const auto& shortcuts = page_.form().shortcuts;
    const auto found = key ? shortcuts.find(*key) : shortcuts.end();
    if (found == shortcuts.end()) return false;
    page_.screen().event(found->second);
    // The platform must see that Alt was not pressed alone, else releasing Alt opens the window's menu.
    DefWindowProcW(page_.handle(), message.message, message.wParam, message.lParam);
    return true;
}

// Handles Enter, and ignores key repeats of a key held since the page before.
bool Keyboard::takesKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || (message.wParam != VK_RETURN && message.wParam != VK_SPACE)) return false;
    const bool held = isHeld(message.lParam);
    const ControlWindow* focused = ControlWindow::of(message.hwnd);
    const bool enter = message.wParam == VK_RETURN && (focused == nullptr || !focused->wantsEnter());
    if (enter && !held) {
        ControlWindow* target = enterTarget();
        if (target != nullptr && target->takesFocus()) target->press();
    }
    return enter || (held && (focused == nullptr || !is<TextBox>(focused->control())));
}

// From a button the arrow keys move the focus to the nearest button on that side.
bool Keyboard::takesArrow(const MSG& message) {
    if (message.message != WM_KEYDOWN || !isArrow(message.wParam)) return false;
    const ControlWindow* from = focused();
    if (from == nullptr || !isButton(from->control())) return false;
    if (ControlWindow* next = neighbour(*from, message.wParam)) focus(*next);
    return true;
}

ControlWindow* Keyboard::neighbour(const ControlWindow& from, WPARAM arrow) const {
    ControlWindow* nearest = nullptr;
    int least = 0;
    for (const auto& window : page_.controls()) {
        const Control& control = window->control();
        if (!isButton(control) || !window->takesFocus() || &control.parent() != &from.control().parent()) continue;
        const int away = distance(from.control().bounds(), control.bounds(), arrow);
        if (away <= 0 || (nearest != nullptr && away >= least)) continue;
        nearest = window.get();
        least = away;
    }
    return nearest;
}

ControlWindow* Keyboard::focused() const {
    const HWND window = GetFocus();
    return IsChild(page_.handle(), window) ? ControlWindow::of(window) : nullptr;
}

// The window of a control that can take the focus, or null.
ControlWindow* Keyboard::find(const Control* control) const {
    ControlWindow* window = control == nullptr ? nullptr : page_.find(*control);
    return window != nullptr && window->takesFocus() ? window : nullptr;
}

// The first control that can take the focus and suits, or null.
template <class Test>
ControlWindow* Keyboard::first(const Test& suits) const {
    const auto& all = page_.controls();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const auto& window) { return window->takesFocus() && suits(window->control()); });
    return found == all.end() ? nullptr : found->get();
}

// What Enter presses where the focus says nothing else.
ControlWindow* Keyboard::defaultButton() const {
    const Control* button = page_.form().defaultButton;
    return button == nullptr ? nullptr : page_.find(*button);
}

// A button that has the focus, or the button of the box that has it, or the page's own.
ControlWindow* Keyboard::enterTarget() const {
    ControlWindow* from = focused();
    if (from == nullptr) return defaultButton();
    if (isButton(from->control())) return from;
    ControlWindow* named = find(from->enterPresses());
    return named != nullptr ? named : defaultButton();
}

void Keyboard::showDefault() {
    ControlWindow* now = enterTarget();
    if (now == shownDefault_) return;
    for (const ControlWindow* window : {shownDefault_, now}) {
        if (window != nullptr) window->redraw();
    }
    shownDefault_ = now;
}

std::optional<LRESULT> Keyboard::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case DM_GETDEFID:
            if (const ControlWindow* button = defaultButton()) {
                return MAKELONG(GetDlgCtrlID(button->handle()), DC_HASDEFID);
            }
            return 0;
        case DM_SETDEFID: return TRUE;
        case WM_NEXTDLGCTL: {
            const HWND next = LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                                  : GetNextDlgTabItem(page_.handle(), GetFocus(), wParam != 0);
            ControlWindow* window = IsChild(page_.handle(), next) ? ControlWindow::of(next) : nullptr;
            if (window != nullptr) focus(*window);
            return 0;
        }
        case WM_UPDATEUISTATE:
            if ((HIWORD(wParam) & UISF_HIDEACCEL) == 0 || LOWORD(wParam) == UIS_INITIALIZE) return std::nullopt;
            cues_ = LOWORD(wParam) == UIS_CLEAR;
            for (const auto& window : page_.controls()) {
                if (shownKey(window->control()) != '\0') window->redraw();
            }
            return std::nullopt;
        default: return std::nullopt;
    }
}

void Keyboard::focusTaken(ControlWindow& window) {
    last_ = &window;
    showDefault();
}

void Keyboard::restoreFocus() {
    if (last_ != nullptr && last_->live()) {
        const FlagGuard quiet = page_.screen().quietly();
        SetFocus(last_->handle());
        return;
    }
    ControlWindow* next = last_ != nullptr ? find(last_->standIn()) : nullptr;
    if (next == nullptr) next = firstInput();
    if (next != nullptr) focus(*next);
}

void Keyboard::settle(const Control* wanted) {
    ControlWindow* next = find(wanted);
    ControlWindow* holder = focused();
    // The choice among option buttons may have moved on.
    if (next == nullptr && holder != nullptr && is<OptionButton>(holder->control())) next = find(holder->standIn());
    if (next != nullptr) {
        focus(*next);
    } else if (GetFocus() == page_.handle()) {
        restoreFocus();
    }
    showDefault();
}

// Sets the focus as Tab does: the text of an input is selected.
void Keyboard::focus(ControlWindow& window) {
    const HWND control = window.handle();
    const FlagGuard quiet = page_.screen().quietly();
    SetFocus(control);
    if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageW(control, EM_SETSEL, 0, -1);
}

// Where the form says, or at the first text box, or at the first input of another kind: inputs lie on frames. A page
// without any begins at its default button, or at its first control.
ControlWindow* Keyboard::firstInput() const {
    if (ControlWindow* named = find(page_.form().firstFocus)) return named;
    ControlWindow* box = first([](const Control& control) { return is<TextBox>(control) && control.enabled(); });
    if (box != nullptr) return box;
    ControlWindow* input = first([](const Control& control) { return &control.parent() != &control.form(); });
    if (input != nullptr) return input;
    ControlWindow* button = find(page_.form().defaultButton);
    return button != nullptr ? button : first([](const Control&) { return true; });
}

}  // namespace vrix
