#include "makers/win32/control_window.h"

#include <algorithm>

#include "forms/buttons.h"
#include "forms/frame.h"
#include "forms/inputs.h"
#include "makers/win32/input_windows.h"
#include "makers/win32/list_windows.h"
#include "makers/win32/painted_windows.h"

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

WindowKind asChild(const Control& control, const WindowKind& kind) {
    return {kind.className, WS_CHILD | (isVisible(control) ? WS_VISIBLE : 0) | kind.style, kind.extendedStyle};
}

// Makes a window of that class if the control is of that kind.
template <class Window, class Kind>
std::unique_ptr<ControlWindow> makeIf(FormWindow& owner, Control& control) {
    auto* one = dynamic_cast<Kind*>(&control);
    return one == nullptr ? nullptr : std::make_unique<Window>(owner, *one);
}

}  // namespace

ControlWindow::ControlWindow(FormWindow& owner, Control& control, const WindowKind& kind)
    : NativeWindow(owner.screen(), asChild(control, kind), owner.handle(), owner.style().px(control.bounds()),
                   owner.nextId()),
      owner_(owner),
      control_(control) {}

// Keys and clicks may also be sent by accessibility tools, even while a message box is open.
bool ControlWindow::takes(UINT message) const {
    const bool key = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    const bool click = message == BM_CLICK || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
    return !(key || click) || owner_.takesInput();
}

LRESULT ControlWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS) owner_.keyboard().focusTaken(*this);
    return NativeWindow::message(message, wParam, lParam);
}

void ControlWindow::layout() {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), FALSE);
    moveTo(place());
}

RECT ControlWindow::lineBox() const {
    const RECT place = ControlWindow::place();
    const int spare = std::max(0, static_cast<int>(place.bottom - place.top) - style().lineBoxHeight());
    return {place.left, place.top + spare / 2, place.right, place.bottom - (spare - spare / 2)};
}

bool ControlWindow::enabled() const {
    return withFrames(control_, [](const Control& part) { return part.enabled(); });
}

void ControlWindow::update() {
    moveTo(place());
    const bool visible = isVisible(control_);
    const bool enabledNow = enabled();
    if (!(visible && enabledNow) && focused()) owner_.keyboard().takeFocusAway();
    if ((IsWindowEnabled(handle()) != FALSE) != enabledNow) EnableWindow(handle(), enabledNow);
    if (shown() != visible) ShowWindow(handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void ControlWindow::setText(const std::wstring& text) {
    if (windowText(handle()) != text) SetWindowTextW(handle(), text.c_str());
}

void ControlWindow::setStyle(LONG_PTR bits, bool on) {
    const LONG_PTR after = on ? styleBits() | bits : styleBits() & ~bits;
    if (after != styleBits()) SetWindowLongPtrW(handle(), GWL_STYLE, after);
}

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
