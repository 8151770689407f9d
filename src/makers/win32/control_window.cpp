#include "makers/win32/control_window.h"

#include <algorithm>
#include <stdexcept>

#include "forms/buttons.h"
#include "forms/event.h"
#include "forms/frame.h"
#include "forms/inputs.h"
#include "makers/win32/input_windows.h"
#include "makers/win32/list_windows.h"
#include "makers/win32/painted_windows.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

// Whether something holds for a control and for every frame that it lies on.
template <class Test>
bool withFrames(const Control& control, const Test& test) {
    const auto* frame = dynamic_cast<const Frame*>(&control.parent());
    return test(control) && (frame == nullptr || withFrames(*frame, test));
}

bool isVisible(const Control& control) {
    return withFrames(control, [](const Control& part) { return part.visible(); });
}

// The window is made in its place: each later change of it asks the platform once more.
HWND makeWindow(const FormWindow& owner, const Control& control, const WindowKind& kind, const RECT& place, HMENU id) {
    const DWORD shown = isVisible(control) ? WS_VISIBLE : 0;
    const HWND window = CreateWindowExW(
        kind.extendedStyle, wide(kind.className).c_str(), L"", WS_CHILD | shown | kind.style, place.left, place.top,
        place.right - place.left, place.bottom - place.top, owner.handle(), id, GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("The window of " + control.name() + " could not be made.");
    return window;
}

// Makes a window of that class if the control is of that kind.
template <class Window, class Kind>
std::unique_ptr<ControlWindow> makeIf(FormWindow& owner, Control& control) {
    auto* one = dynamic_cast<Kind*>(&control);
    return one == nullptr ? nullptr : std::make_unique<Window>(owner, *one);
}

}  // namespace

ControlWindow::ControlWindow(FormWindow& owner, Control& control, const WindowKind& kind)
    : owner_(owner),
      control_(control),
      placed_(owner.style().px(control.bounds())),
      handle_(makeWindow(owner, control, kind, placed_, reinterpret_cast<HMENU>(owner.nextId()))) {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure)));
}

ControlWindow::~ControlWindow() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

ControlWindow* ControlWindow::of(HWND handle) {
    return reinterpret_cast<ControlWindow*>(GetWindowLongPtrA(handle, GWLP_USERDATA));
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ControlWindow* self = of(window);
    LRESULT result = 0;
    runEvent(self->owner_.screen(), [&] { result = self->received(message, wParam, lParam); });
    if (message == WM_NCDESTROY) self->handle_ = nullptr;
    return result;
}

// Keys and clicks also come from programs that help people to use the screen. They may send them while a message box is
// up.
LRESULT ControlWindow::received(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool key = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    const bool click = message == BM_CLICK || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
    if ((key || click) && !owner_.takesInput()) return 0;
    if (message == WM_SETFOCUS) owner_.keyboard().focusTaken(*this);
    return this->message(message, wParam, lParam);
}

LRESULT ControlWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(original_, handle_, message, wParam, lParam);
}

LRESULT ControlWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(handle_, message, wParam, lParam);
}

void ControlWindow::layout() {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(owner_.style().font(Look::body)), FALSE);
    moveTo(place());
}

RECT ControlWindow::place() const { return owner_.style().px(control_.bounds()); }

RECT ControlWindow::lineBox() const {
    const RECT place = ControlWindow::place();
    const int spare = std::max(0, static_cast<int>(place.bottom - place.top) - owner_.style().lineBoxHeight());
    return {place.left, place.top + spare / 2, place.right, place.bottom - (spare - spare / 2)};
}

void ControlWindow::moveTo(const RECT& place) {
    if (EqualRect(&place, &placed_)) return;
    placed_ = place;
    SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

bool ControlWindow::enabled() const {
    return withFrames(control_, [](const Control& part) { return part.enabled(); });
}

void ControlWindow::update() {
    moveTo(place());
    const bool visible = isVisible(control_);
    const bool enabledNow = enabled();
    if (!(visible && enabledNow) && GetFocus() == handle_) owner_.keyboard().takeFocusAway();
    if ((IsWindowEnabled(handle_) != FALSE) != enabledNow) EnableWindow(handle_, enabledNow);
    if (shown() != visible) ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

bool ControlWindow::shown() const { return (GetWindowLongA(handle_, GWL_STYLE) & WS_VISIBLE) != 0; }

bool ControlWindow::live() const {
    return (GetWindowLongA(handle_, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

bool ControlWindow::takesFocus() const { return live() && (GetWindowLongA(handle_, GWL_STYLE) & WS_TABSTOP) != 0; }

bool ControlWindow::setText(const std::string& text) {
    const std::wstring shown = wide(text);
    if (windowText(handle_) == shown) return false;
    SetWindowTextW(handle_, shown.c_str());
    return true;
}

std::string ControlWindow::shortenedTo(int width, const std::string& text) const {
    const auto font = reinterpret_cast<HFONT>(send(WM_GETFONT));
    std::string result = shortened(font, text, width);
    owner_.explain(handle_, result == text ? std::string() : text);
    return result;
}

void ControlWindow::setStyle(LONG bits, bool on) {
    const LONG before = GetWindowLongA(handle_, GWL_STYLE);
    const LONG after = on ? before | bits : before & ~bits;
    if (after != before) SetWindowLongA(handle_, GWL_STYLE, after);
}

void ControlWindow::event(const std::function<void()>& event) const { owner_.screen().event(event); }

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::unique_ptr<ControlWindow> makeControlWindow(FormWindow& owner, Control& control) {
    for (const auto make :
         {&makeIf<LabelWindow, Label>, &makeIf<PictureWindow, Picture>, &makeIf<TaskPictureWindow, TaskPicture>,
          &makeIf<ImageButtonWindow, ImageButton>, &makeIf<TextBoxWindow, TextBox>, &makeIf<CheckBoxWindow, CheckBox>,
          &makeIf<OptionButtonWindow, OptionButton>, &makeIf<ComboBoxWindow, ComboBox>,
          &makeIf<MarkListWindow, MarkList>}) {
        if (auto window = make(owner, control)) return window;
    }
    return nullptr;
}

}  // namespace vrix
