#include "makers/win32/form_window.h"

#include <windowsx.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "forms/buttons.h"
#include "forms/event.h"
#include "makers/win32/control_window.h"
#include "makers/win32/frame_window.h"
#include "makers/win32/themed_controls.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

constexpr int bandGap = 16;  // from the title band to the content
constexpr int rowGap = 12;   // from the content to the row of buttons
constexpr UINT pageLeft = WM_APP;

const wchar_t* windowClass(WNDPROC procedure) {
    static const wchar_t* name = [procedure] {
        WNDCLASSW kind{};
        kind.lpfnWndProc = procedure;
        kind.hInstance = GetModuleHandleA(nullptr);
        kind.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        kind.lpszClassName = L"VrixForm";
        RegisterClassW(&kind);
        return kind.lpszClassName;
    }();
    return name;
}

HWND makeWindow(const Form& form, const FrameWindow& frame, WNDPROC procedure) {
    const HWND window =
        CreateWindowExW(WS_EX_CONTROLPARENT, windowClass(procedure), L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                        0, 0, 0, 0, frame.handle(), nullptr, GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("The window of " + form.name() + " could not be made.");
    return window;
}

}  // namespace

FormWindow::FormWindow(Win32Screen& screen, Form& form, FrameWindow& frame)
    : screen_(screen),
      form_(form),
      frame_(&frame),
      handle_(makeWindow(form, frame, &FormWindow::procedure)),
      keyboard_(screen, form, handle_),
      style_(frame.styleFor(form.size())) {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    measureRegions();
    makeControls();
    layOut();
}

FormWindow::~FormWindow() {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);  // unless it went with its frame; with it go the windows of its controls
}

void FormWindow::makeControls() {
    std::optional<ThemedControls> themed;
    if (form_.border() == Form::Border::fixed) themed.emplace();
    for (Control* control : form_.controls()) {
        auto window = makeControlWindow(*this, *control);
        if (window == nullptr) continue;
        keyboard_.add(*window);
        byControl_[control] = window.get();
        if (const auto* button = dynamic_cast<ImageButton*>(control)) byControl_[&button->label] = window.get();
        controls_.push_back(std::move(window));
    }
}

void FormWindow::layOut() {
    const Size& size = form_.size();
    SetWindowPos(handle_, nullptr, 0, 0, style_->px(size.width), style_->px(size.height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    for (const auto& window : controls_) {
        window->layout();
        window->update();
    }
}

void FormWindow::measureRegions() {
    const Control* content = form_.find("Frame2");
    if (content == nullptr) return;
    const Bounds bounds = content->bounds();
    bandBottom_ = bounds.top - bandGap;
    rowTop_ = bounds.top + bounds.height + rowGap;
}

void FormWindow::take(std::shared_ptr<const Style> style) {
    if (style == style_) return;
    const auto before = std::exchange(style_, std::move(style));  // the controls still use its fonts
    layOut();
    RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

bool FormWindow::onScreen() const { return frame_->page() == this; }

bool FormWindow::takesInput() const { return IsWindowEnabled(handle_) && IsWindowEnabled(frame_->handle()); }

void FormWindow::moveInto(FrameWindow& frame) {
    if (&frame == frame_) return;
    frame_ = &frame;
    SetParent(handle_, frame.handle());
}

void FormWindow::setShown(bool shown) {
    const UINT change = shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW | SWP_NOZORDER;
    SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW | change);
    if (!shown) PostMessageW(handle_, pageLeft, 0, 0);
}

// A button that was pressed stays in its hover face. When the page comes back, the pointer may be anywhere.
void FormWindow::left() {
    if (form_.visible()) return;
    for (const auto& window : controls_) window->pointerGone();
    screen_.event([this] { form_.resetButtons(); });
}

void FormWindow::settle(const Control* wanted) {
    if (onScreen() && frame_->active() && takesInput()) keyboard_.settle(wanted);
}

// The focus does not stay on a disabled page.
void FormWindow::takeEnabled() {
    const bool enabled = form_.enabled();
    EnableWindow(handle_, enabled);
    if (!onScreen() || !frame_->active()) return;
    if (!enabled && IsChild(handle_, GetFocus())) SetFocus(frame_->handle());
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

// While the page takes no input, a change that someone else makes to a control is taken back.
void FormWindow::notified(ControlWindow& window, int code) {
    if (takesInput() || screen_.quiet()) return window.notified(code);
    screen_.quietly([&] { window.update(); });
}

ControlWindow* FormWindow::underPointer() const {
    POINT point{};
    GetCursorPos(&point);
    if (!onScreen() || GetAncestor(WindowFromPoint(point), GA_ROOT) != frame_->handle()) return nullptr;
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const auto& window) {
        RECT area{};
        GetWindowRect(window->handle(), &area);
        return window->shown() && PtInRect(&area, point);
    });
    return found == controls_.end() ? nullptr : found->get();
}

void FormWindow::pointerMoved() {
    if (underPointer() != nullptr) return;
    for (const auto& window : controls_) window->pointerGone();
    screen_.event([this] { form_.mouseMove(); });
}

int FormWindow::surface(const Control& control) const {
    return rowTop_ > 0 && control.bounds().top >= rowTop_ ? COLOR_BTNFACE : COLOR_WINDOW;
}

// Each pixel is drawn once, so nothing flickers.
void FormWindow::paint(HDC dc, const RECT& area) const {
    const auto fill = [&](LONG left, LONG top, LONG right, LONG bottom, Colour colour) {
        const RECT part{left, top, right, bottom};
        SetDCBrushColor(dc, colour);
        FillRect(dc, &part, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    };
    const Palette& palette = style_->palette();
    const LONG right = area.right;
    const LONG bottom = area.bottom;
    const int line = style_->px(1);
    if (rowTop_ == 0) {
        fill(0, 0, right, line, palette.rule);
        fill(0, line, line, bottom, palette.rule);
        fill(line, line, right - line, bottom - line, palette.window);
        fill(right - line, line, right, bottom, palette.rule);
        fill(line, bottom - line, right - line, bottom, palette.rule);
        return;
    }
    const int row = style_->px(rowTop_);
    const int band = style_->px(bandBottom_);
    fill(0, 0, right, band - line, palette.window);
    fill(0, band - line, right, band, palette.rule);
    fill(0, band, right, row, palette.window);
    fill(0, row, right, row + line, palette.rule);
    fill(0, row + line, right, bottom, palette.face);
}

std::optional<LRESULT> FormWindow::colourMessage(HDC dc, HWND child) const {
    const ControlWindow* window = ControlWindow::of(child);
    if (window == nullptr) return std::nullopt;
    const int surfaceIndex =
        window->takesText() ? COLOR_BTNFACE : surface(window->control());  // a box that is read only
    SetTextColor(dc, surfaceIndex == COLOR_BTNFACE ? style_->palette().faceText : style_->palette().text);
    SetBkColor(dc, GetSysColor(surfaceIndex));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(surfaceIndex));
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    std::optional<LRESULT> result;
    if (self != nullptr) runEvent(self->screen_, [&] { result = self->message(message, wParam, lParam); });
    return result ? *result : DefWindowProcW(window, message, wParam, lParam);
}

std::optional<LRESULT> FormWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCPAINT: return 0;  // it has no border
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            RECT area{};
            GetClientRect(handle_, &area);
            PAINTSTRUCT job;
            const HDC dc = BeginPaint(handle_, &job);
            if (!IsRectEmpty(&area)) paint(dc, area);
            EndPaint(handle_, &job);
            return 0;
        }
        case WM_MOUSEMOVE: pointerMoved(); return 0;
        case pageLeft: left(); return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: return colourMessage(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item.CtlType == ODT_LISTBOX) ControlWindow::of(item.hwndItem)->drawRow(item);
            return TRUE;
        }
        case WM_COMMAND:
            if (lParam != 0) notified(*ControlWindow::of(reinterpret_cast<HWND>(lParam)), HIWORD(wParam));
            return 0;
        default: return keyboard_.message(message, wParam, lParam);
    }
}

}  // namespace vrix
