#include "makers/win32/form_window.h"

#include <windowsx.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "forms/buttons.h"
#include "forms/event.h"
#include "makers/win32/control_window.h"
#include "makers/win32/library_function.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

constexpr DWORD pageStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD borderlessStyle = WS_POPUP | WS_CLIPCHILDREN;
constexpr int bandGap = 16;  // from the title band to the content
constexpr int rowGap = 12;   // from the content to the row of buttons

HICON programIcon(int width, int height) {
    return static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(1), IMAGE_ICON,
                                         GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED));
}

const wchar_t* windowClass(WNDPROC procedure) {
    static const wchar_t* name = [procedure] {
        WNDCLASSEXW kind{};
        kind.cbSize = sizeof(kind);
        kind.lpfnWndProc = procedure;
        kind.hInstance = GetModuleHandleA(nullptr);
        kind.hIcon = programIcon(SM_CXICON, SM_CYICON);
        kind.hIconSm = programIcon(SM_CXSMICON, SM_CYSMICON);
        kind.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        kind.lpszClassName = L"VrixForm";
        RegisterClassExW(&kind);
        return kind.lpszClassName;
    }();
    return name;
}

// The outer rectangle of a window with this client area.
RECT withFrame(RECT client, HWND window, int dpi) {
    using Adjust = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    static const auto adjust = libraryFunction<Adjust>("user32.dll", "AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    if (adjust != nullptr) {
        adjust(&client, style, FALSE, 0, static_cast<UINT>(dpi));
    } else {
        AdjustWindowRectEx(&client, style, FALSE, 0);
    }
    return client;
}

RECT windowRect(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

HWND makeWindow(const Form& form, WNDPROC procedure) {
    const DWORD style = form.border() == Form::Border::fixed ? pageStyle : borderlessStyle;
    const HWND window = CreateWindowExW(0, windowClass(procedure), wide(form.caption()).c_str(), style, 0, 0, 0, 0,
                                        nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("The window of " + form.name() + " could not be made.");
    return window;
}

}  // namespace

FormWindow::FormWindow(Win32Screen& screen, Form& form)
    : screen_(screen),
      form_(form),
      handle_(makeWindow(form, &FormWindow::procedure)),
      keyboard_(screen, handle_),
      style_(std::make_unique<Style>(fittingDpi(dpiOf(handle_)))) {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    measureRegions();
    makeControls();
    // The form has centred its client area; the window takes the same centre with its frame.
    const RECT outer = frameAt(style_->dpi());
    const int dpi = systemDpi();
    placeAt(MulDiv(2 * form_.left() + form_.size().width, dpi, 192) - (outer.right - outer.left) / 2,
            MulDiv(2 * form_.top() + form_.size().height, dpi, 192) - (outer.bottom - outer.top) / 2);
}

FormWindow::~FormWindow() {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);  // and with it the windows of its controls
}

void FormWindow::makeControls() {
    for (Control* control : form_.controls()) {
        auto window = makeControlWindow(*this, *control);
        if (window == nullptr) continue;
        keyboard_.add(*window);
        byControl_[control] = window.get();
        if (const auto* button = dynamic_cast<ImageButton*>(control)) byControl_[&button->label] = window.get();
        controls_.push_back(std::move(window));
    }
    layOut();
}

void FormWindow::layOut() {
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

RECT FormWindow::workArea() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoA(MonitorFromWindow(handle_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

// The outer rectangle round a client area that begins at (0, 0).
RECT FormWindow::frameAt(int dpi) const {
    const Size& size = form_.size();
    return withFrame({0, 0, MulDiv(size.width, dpi, 96), MulDiv(size.height, dpi, 96)}, handle_, dpi);
}

// The scale of the monitor, or the largest at which the window fits on it.
int FormWindow::fittingDpi(int dpi) const {
    constexpr int leastReadable = 60;
    const RECT work = workArea();
    const auto fits = [&](const RECT& area) {
        return area.right - area.left <= work.right - work.left && area.bottom - area.top <= work.bottom - work.top;
    };
    while (dpi > leastReadable && !fits(frameAt(dpi))) --dpi;
    return dpi;
}

// Places the window with its frame, and keeps all of it on its monitor.
void FormWindow::placeAt(int left, int top) {
    const RECT work = workArea();
    RECT area = frameAt(style_->dpi());
    OffsetRect(&area, left - area.left, top - area.top);
    OffsetRect(&area, std::min<int>(0, work.right - area.right), std::min<int>(0, work.bottom - area.bottom));
    OffsetRect(&area, std::max<int>(0, work.left - area.left), std::max<int>(0, work.top - area.top));
    SetWindowPos(handle_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::applyStyle(int dpi) {
    const auto before = std::exchange(style_, std::make_unique<Style>(dpi));  // the controls still use its fonts
    layOut();
    RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::rescale(int dpi, int left, int top) {
    applyStyle(fittingDpi(dpi));
    placeAt(left, top);
}

void FormWindow::show() {
    takeEnabled();
    if (onScreen_) return;
    onScreen_ = true;
    keyboard_.forgetFocus();
    ShowWindow(handle_, SW_SHOW);
    if (GetActiveWindow() == handle_) keyboard_.restoreFocus();
    RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::hide() {
    takeEnabled();
    if (!onScreen_) return;
    onScreen_ = false;
    ShowWindow(handle_, SW_HIDE);
}

void FormWindow::takeEnabled() { EnableWindow(handle_, form_.enabled()); }

ControlWindow* FormWindow::find(const Control& control) const {
    const auto found = byControl_.find(&control);
    return found == byControl_.end() ? nullptr : found->second;
}

void FormWindow::update(const Control& control) {
    if (ControlWindow* window = find(control)) return window->update();
    for (const auto& window : controls_) window->update();
}

void FormWindow::pointerMoved(POINT point) {
    MapWindowPoints(handle_, nullptr, &point, 1);
    const bool overControl = std::any_of(controls_.begin(), controls_.end(), [&](const auto& window) {
        const RECT area = windowRect(window->handle());
        return window->shown() && PtInRect(&area, point);
    });
    if (!overControl) screen_.event([this] { form_.mouseMove(); });
}

int FormWindow::surface(const Control& control) const {
    return rowTop_ > 0 && control.bounds().top >= rowTop_ ? COLOR_BTNFACE : COLOR_WINDOW;
}

void FormWindow::paint(HDC dc, const RECT& area) const {
    const Buffer buffer(dc, area);
    const auto fill = [&](const RECT& part, Colour colour) {
        SetDCBrushColor(buffer.dc(), colour);
        FillRect(buffer.dc(), &part, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    };
    const Palette& palette = style_->palette();
    const int line = style_->px(1);
    const int row = style_->px(rowTop_);
    const int band = style_->px(bandBottom_);
    if (rowTop_ == 0) {
        fill(area, palette.rule);
        fill({area.left + line, area.top + line, area.right - line, area.bottom - line}, palette.window);
        return;
    }
    fill({area.left, area.top, area.right, row}, palette.window);
    fill({area.left, row, area.right, area.bottom}, palette.face);
    fill({area.left, band - line, area.right, band}, palette.rule);
    fill({area.left, row, area.right, row + line}, palette.rule);
}

std::optional<LRESULT> FormWindow::colourMessage(HDC dc, HWND child) const {
    const ControlWindow* window = ControlWindow::of(child);
    if (window == nullptr || window->takesText()) return std::nullopt;
    const int surfaceIndex = surface(window->control());
    SetTextColor(dc, style_->palette().text);
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
        case WM_MOUSEMOVE: pointerMoved({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}); return 0;
        case WM_CLOSE:
            if (IsWindowEnabled(handle_)) screen_.event([this] { form_.closed(); });
            return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: return colourMessage(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item.CtlType == ODT_LISTBOX) ControlWindow::of(item.hwndItem)->drawRow(item);
            return TRUE;
        }
        case WM_DPICHANGED: {
            const RECT& area = *reinterpret_cast<const RECT*>(lParam);
            rescale(HIWORD(wParam), area.left, area.top);
            return 0;
        }
        case WM_DISPLAYCHANGE: {
            const RECT area = windowRect(handle_);
            rescale(dpiOf(handle_), area.left, area.top);
            return 0;
        }
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED: applyStyle(style_->dpi()); return std::nullopt;
        case WM_COMMAND:
            if (lParam != 0) ControlWindow::of(reinterpret_cast<HWND>(lParam))->notified(HIWORD(wParam));
            return 0;
        default: return keyboard_.message(message, wParam, lParam);
    }
}

}  // namespace vrix
