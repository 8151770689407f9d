#include "makers/win32/control_window.h"

#include <stdexcept>

#include "forms/buttons.h"
#include "forms/event.h"
#include "forms/frame.h"
#include "forms/inputs.h"
#include "makers/win32/input_windows.h"
#include "makers/win32/painted_windows.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

// A control stands on screen, or takes input, only where the frames that it lies on do too.
template <class Test>
bool withFrames(const Control& control, const Test& test) {
    const auto* frame = dynamic_cast<const Frame*>(&control.parent());
    return test(control) && (frame == nullptr || withFrames(*frame, test));
}

}  // namespace

ControlWindow::ControlWindow(FormWindow& owner, Control& control, const WindowKind& kind)
    : owner_(owner),
      control_(control),
      handle_(CreateWindowExA(kind.extendedStyle, kind.className, "", WS_CHILD | kind.style, 0, 0, 0, 0, owner.handle(),
                              reinterpret_cast<HMENU>(owner.nextId()), GetModuleHandleA(nullptr), nullptr)) {
    if (handle_ == nullptr) throw std::runtime_error("The window of " + control.name() + " could not be made.");
    SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure)));
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
    runEvent(self->owner_.screen(), [&] { result = self->message(message, wParam, lParam); });
    if (message == WM_NCDESTROY) self->handle_ = nullptr;
    return result;
}

LRESULT ControlWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(original_, handle_, message, wParam, lParam);
}

LRESULT ControlWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageA(handle_, message, wParam, lParam);
}

LRESULT ControlWindow::send(UINT message, WPARAM wParam, const std::string& text) const {
    return send(message, wParam, reinterpret_cast<LPARAM>(text.c_str()));
}

void ControlWindow::layout() {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(owner_.style().font(Look::body)), FALSE);
    moveTo(place());
}

RECT ControlWindow::place() const { return owner_.style().px(control_.bounds()); }

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
    const bool visible = withFrames(control_, [](const Control& part) { return part.visible(); });
    const bool enabledNow = enabled();
    if (!(visible && enabledNow) && GetFocus() == handle_) owner_.moveFocusFrom(handle_);
    if ((IsWindowEnabled(handle_) != FALSE) != enabledNow) EnableWindow(handle_, enabledNow);
    if (shown() != visible) ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

bool ControlWindow::shown() const { return (GetWindowLongA(handle_, GWL_STYLE) & WS_VISIBLE) != 0; }

bool ControlWindow::takesFocus() const {
    constexpr LONG needed = WS_TABSTOP | WS_VISIBLE;
    return (GetWindowLongA(handle_, GWL_STYLE) & (needed | WS_DISABLED)) == needed;
}

void ControlWindow::setText(const std::string& text) {
    if (windowText(handle_) != text) SetWindowTextA(handle_, text.c_str());
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

std::string windowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::unique_ptr<ControlWindow> makeControlWindow(FormWindow& owner, Control& control) {
    switch (control.kind()) {
        case ControlKind::label: return std::make_unique<LabelWindow>(owner, static_cast<Label&>(control));
        case ControlKind::picture: return std::make_unique<PictureWindow>(owner, static_cast<Picture&>(control));
        case ControlKind::taskPicture:
            return std::make_unique<TaskPictureWindow>(owner, static_cast<TaskPicture&>(control));
        case ControlKind::imageButton:
            return std::make_unique<ImageButtonWindow>(owner, static_cast<ImageButton&>(control));
        case ControlKind::textBox: return std::make_unique<TextBoxWindow>(owner, static_cast<TextBox&>(control));
        case ControlKind::checkBox: return std::make_unique<CheckBoxWindow>(owner, static_cast<CheckBox&>(control));
        case ControlKind::optionButton:
            return std::make_unique<OptionButtonWindow>(owner, static_cast<OptionButton&>(control));
        case ControlKind::comboBox: return std::make_unique<ComboBoxWindow>(owner, static_cast<ComboBox&>(control));
        case ControlKind::markList: return std::make_unique<MarkListWindow>(owner, static_cast<MarkList&>(control));
        case ControlKind::frame:
        case ControlKind::buttonLabel: break;
    }
    return nullptr;
}

}  // namespace vrix
