#include "makers/win32/form_window.h"

#include <optional>
#include <utility>

#include "forms/buttons.h"
#include "forms/inputs.h"
#include "forms/label.h"
#include "makers/win32/control_window.h"
#include "makers/win32/frame_window.h"
#include "makers/win32/themed_controls.h"

namespace vrix {

namespace {

constexpr int bandGap = 16;  // from the title band to the content
constexpr int rowGap = 12;   // from the content to the row of buttons
constexpr UINT pageLeft = WM_APP;
constexpr WindowKind page{formClass, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT};

}  // namespace

FormWindow::FormWindow(Win32Screen& screen, Form& form, FrameWindow& frame)
    : NativeWindow(screen, page, frame.handle()),
      form_(form),
      frame_(&frame),
      keyboard_(*this),
      style_(frame.styleFor(form.size())) {
    if (form.content != nullptr) {
        const Bounds content = form.content->bounds();
        bandBottom_ = content.top - bandGap;
        rowTop_ = content.top + content.height + rowGap;
    }
    makeControls();
    layOut();
}

void FormWindow::makeControls() {
    std::optional<ThemedControls> themed;
    if (form_.border() == Form::Border::fixed) themed.emplace();
    for (Control* control : form_.controls()) {
        auto window = makeControlWindow(*this, *control);
        if (window == nullptr) continue;
        // The platform's arrow keys move within a group of option buttons.
        const bool grouped = !controls_.empty() && is<OptionButton>(controls_.back()->control());
        if (grouped && is<OptionButton>(*control)) window->joinGroup();
        byControl_[control] = window.get();
        if (const auto* button = dynamic_cast<ImageButton*>(control)) byControl_[&button->label] = window.get();
        controls_.push_back(std::move(window));
    }
}

void FormWindow::layOut() {
    const Size& size = form_.size();
    moveTo({0, 0, style_->px(size.width), style_->px(size.height)});
    for (const auto& window : controls_) {
        window->layout();
        window->update();
    }
}

void FormWindow::take(std::shared_ptr<const Style> style) {
    if (style == style_) return;
    const auto before = std::exchange(style_, std::move(style));  // the controls still use its fonts
    layOut();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

bool FormWindow::onScreen() const { return frame_->page() == this; }

bool FormWindow::takesInput() const { return IsWindowEnabled(handle()) && IsWindowEnabled(frame_->handle()); }

void FormWindow::moveInto(FrameWindow& frame) {
    if (&frame == frame_) return;
    frame_ = &frame;
    SetParent(handle(), frame.handle());
}

void FormWindow::setShown(bool shown) {
    const UINT change = shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW | SWP_NOZORDER;
    SetWindowPos(handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW | change);
    if (!shown) PostMessageW(handle(), pageLeft, 0, 0);
}

void FormWindow::settle(const Control* wanted) {
    if (onScreen() && frame_->active() && takesInput()) keyboard_.settle(wanted);
}

// The focus does not stay on a disabled page.
void FormWindow::takeEnabled() {
    const bool enabled = form_.enabled();
    EnableWindow(handle(), enabled);
    if (!onScreen() || !frame_->active()) return;
    if (!enabled && IsChild(handle(), GetFocus())) SetFocus(frame_->handle());
    if (enabled && GetFocus() == frame_->handle()) keyboard_.restoreFocus();
}

ControlWindow* FormWindow::find(const Control& control) const {
    const auto found = byControl_.find(&control);
    return found == byControl_.end() ? nullptr : found->second;
}

void FormWindow::update(const Control& control) {
    if (ControlWindow* window = find(control)) return window->update();
    for (const auto& window : controls_) window->update();
}

// While the page takes no input, a change that another program makes to a control is undone.
void FormWindow::notified(ControlWindow& window, int code) {
    if (takesInput() || screen().quiet()) return window.notified(code);
    const FlagGuard quiet = screen().quietly();
    window.update();
}

// Found by position: labels pass mouse moves on to the page, and disabled controls get none.
ControlWindow* FormWindow::underPointer() const {
    POINT point{};
    GetCursorPos(&point);
    if (!onScreen() || GetAncestor(WindowFromPoint(point), GA_ROOT) != frame_->handle()) return nullptr;
    ScreenToClient(handle(), &point);
    ControlWindow* under = ControlWindow::of(ChildWindowFromPointEx(handle(), point, CWP_SKIPINVISIBLE));
    const auto* label = under == nullptr ? nullptr : dynamic_cast<const Label*>(&under->control());
    return label == nullptr || label->presses == nullptr ? under : find(*label->presses);
}

ControlWindow* FormWindow::followPointer() {
    ControlWindow* under = underPointer();
    const HWND holder = GetCapture();  // while a press has the mouse capture, no other control is hovered
    for (const auto& window : controls_) {
        window->hovered(window.get() == under && (holder == nullptr || holder == window->handle()));
    }
    return under;
}

int FormWindow::surface(const Control& control) const {
    return rowTop_ > 0 && control.bounds().top >= rowTop_ ? COLOR_BTNFACE : COLOR_WINDOW;
}

// Each pixel is drawn once, so nothing flickers.
void FormWindow::paint(HDC dc, const RECT& area) const {
    const Palette& palette = style_->palette();
    const LONG right = area.right;
    const LONG bottom = area.bottom;
    const int line = style_->px(1);
    if (rowTop_ == 0) {
        fill(dc, {line, line, right - line, bottom - line}, palette.window);
        ExcludeClipRect(dc, line, line, right - line, bottom - line);
        return fill(dc, area, palette.rule);
    }
    const int row = style_->px(rowTop_);
    const int band = style_->px(bandBottom_);
    fill(dc, {0, 0, right, band - line}, palette.window);
    fill(dc, {0, band - line, right, band}, palette.rule);
    fill(dc, {0, band, right, row}, palette.window);
    fill(dc, {0, row, right, row + line}, palette.rule);
    fill(dc, {0, row + line, right, bottom}, palette.face);
}

LRESULT FormWindow::colours(HDC dc, const ControlWindow& window) const {
    // A text box asks for these only while it is read only.
    const int background = is<TextBox>(window.control()) ? COLOR_BTNFACE : surface(window.control());
    SetTextColor(dc, background == COLOR_BTNFACE ? style_->palette().faceText : style_->palette().text);
    SetBkColor(dc, GetSysColor(background));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(background));
}

LRESULT FormWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCPAINT: return 0;  // it has no border
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(Painting(handle()), clientArea()); return 0;
        case WM_MOUSEMOVE:
            if (followPointer() == nullptr) screen().event([this] { form_.mouseMove(); });
            return 0;
        // A button that was pressed stays in its hover face. When the page comes back, the pointer may be anywhere.
        case pageLeft: followPointer(); return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            if (const auto* child = ControlWindow::of(reinterpret_cast<HWND>(lParam))) {
                return colours(reinterpret_cast<HDC>(wParam), *child);
            }
            break;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            ControlWindow* child = ControlWindow::of(item.hwndItem);
            if (child != nullptr && item.CtlType == ODT_LISTBOX) child->drawRow(item);
            return TRUE;
        }
        case WM_COMMAND:
            if (auto* child = ControlWindow::of(reinterpret_cast<HWND>(lParam))) notified(*child, HIWORD(wParam));
            return 0;
        default: break;
    }
    const auto result = keyboard_.message(message, wParam, lParam);
    return result ? *result : NativeWindow::message(message, wParam, lParam);
}

}  // namespace vrix
