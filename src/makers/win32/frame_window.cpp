#include "makers/win32/frame_window.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "forms/event.h"
#include "makers/win32/control_window.h"
#include "makers/win32/form_window.h"
#include "makers/win32/library_function.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

constexpr DWORD borderedStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD borderlessStyle = WS_POPUP | WS_CLIPCHILDREN;
constexpr UINT about = 0x10;  // the platform keeps the last four bits of a command for itself

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
        kind.lpszClassName = L"VrixFrame";
        RegisterClassExW(&kind);
        return kind.lpszClassName;
    }();
    return name;
}

// The edges of a window at a scale, as the outer rectangle round an empty page at (0, 0).
RECT edgesAt(HWND window, int dpi) {
    RECT edges{};
    using Adjust = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    static const auto adjust = libraryFunction<Adjust>("user32.dll", "AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    if (adjust != nullptr) {
        adjust(&edges, style, FALSE, 0, static_cast<UINT>(dpi));
    } else {
        AdjustWindowRectEx(&edges, style, FALSE, 0);
    }
    return edges;
}

// The outer rectangle of a frame round a page, which may have a scale of its own.
RECT outerRect(const RECT& edges, const Size& page, int pageDpi) {
    return {edges.left, edges.top, edges.right + MulDiv(page.width, pageDpi, 96),
            edges.bottom + MulDiv(page.height, pageDpi, 96)};
}

RECT windowRect(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

HWND makeWindow(const Form& form, const Identity& program, WNDPROC procedure) {
    const bool bordered = form.border() == Form::Border::fixed;
    const HWND window = CreateWindowExW(0, windowClass(procedure), wide(form.caption() + program.captionEnd).c_str(),
                                        bordered ? borderedStyle : borderlessStyle, 0, 0, 0, 0, nullptr, nullptr,
                                        GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("The window of " + form.name() + " could not be made.");
    if (bordered && !program.about.empty()) {
        const HMENU menu = GetSystemMenu(window, FALSE);
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu, MF_STRING, about, L"&About");
    }
    return window;
}

}  // namespace

FrameWindow::FrameWindow(Win32Screen& screen, const Form& first)
    : screen_(screen),
      border_(first.border()),
      handle_(makeWindow(first, screen.identity, &FrameWindow::procedure)),
      dpi_(dpiOf(handle_)),
      edges_(edgesAt(handle_, dpi_)) {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // The form has centred its client area; the frame takes the same centre with its border.
    const Size& size = first.size();
    const RECT outer = outerRect(edges_, size, fittingDpi(size));
    const int middle = MulDiv(2 * first.top() + size.height, systemDpi(), 192);
    topCentre_ = {MulDiv(2 * first.left() + size.width, systemDpi(), 192), middle - (outer.bottom - outer.top) / 2};
}

FrameWindow::~FrameWindow() {
    SetWindowLongPtrA(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);
}

void FrameWindow::show(FormWindow& page) {
    FormWindow* before = std::exchange(page_, &page);
    page.moveInto(*this);
    page.keyboard().showCues(GetKeyState(VK_MENU) < 0);
    fit();
    page.setShown(true);
    if (before == nullptr) ShowWindow(handle_, SW_SHOW);
    if (before != nullptr && active()) focusPage();
    if (before != nullptr) before->setShown(false);
    // The whole page is painted once, when all is in its place.
    RedrawWindow(page.handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FrameWindow::hide() {
    ShowWindow(handle_, SW_HIDE);
    std::exchange(page_, nullptr)->setShown(false);
}

RECT FrameWindow::workArea() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoA(MonitorFromPoint(topCentre_, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

// The frame's size on a monitor of another scale.
SIZE FrameWindow::sizeAt(int dpi) const {
    const RECT outer = outerRect(edgesAt(handle_, dpi), page_->form().size(), screen_.styles().withTextScale(dpi));
    return {outer.right - outer.left, outer.bottom - outer.top};
}

int FrameWindow::fittingDpi(const Size& page) const {
    constexpr int leastReadable = 60;
    const RECT work = workArea();
    const auto fits = [&](const RECT& area) {
        return area.right - area.left <= work.right - work.left && area.bottom - area.top <= work.bottom - work.top;
    };
    int dpi = screen_.styles().withTextScale(dpi_);
    while (dpi > leastReadable && !fits(outerRect(edges_, page, dpi))) --dpi;
    return dpi;
}

std::shared_ptr<const Style> FrameWindow::styleFor(const Size& page) const {
    return screen_.styles().at(fittingDpi(page));
}

bool FrameWindow::shownOpen() const { return page_ != nullptr && !minimised_; }

// Gives page and frame the scale that holds now. A minimised frame waits for this until it is restored.
void FrameWindow::fit() {
    if (!shownOpen()) return;
    const Size& size = page_->form().size();
    page_->take(styleFor(size));
    const RECT outer = outerRect(edges_, size, page_->style().dpi());
    placeAt(topCentre_.x - (outer.right - outer.left) / 2, topCentre_.y, true);
}

void FrameWindow::placeAt(int left, int top, bool wholeOnMonitor) {
    RECT area = outerRect(edges_, page_->form().size(), page_->style().dpi());
    OffsetRect(&area, left - area.left, top - area.top);
    if (wholeOnMonitor) {
        const RECT work = workArea();
        OffsetRect(&area, std::min<int>(0, work.right - area.right), std::min<int>(0, work.bottom - area.bottom));
        OffsetRect(&area, std::max<int>(0, work.left - area.left), std::max<int>(0, work.top - area.top));
    }
    if (EqualRect(&area, &placed_)) return;
    placed_ = area;
    SetWindowPos(handle_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// Asking the platform takes longer than all else that places a frame.
void FrameWindow::measureEdges(int dpi) {
    dpi_ = dpi;
    edges_ = edgesAt(handle_, dpi);
}

// The frame goes where the platform suggests. While it is dragged from one monitor to another, any other place would
// take it back to the first.
void FrameWindow::dpiChanged(int dpi, const RECT& suggested) {
    measureEdges(dpi);
    if (!shownOpen()) return;
    topCentre_ = {(suggested.left + suggested.right) / 2, suggested.top};
    page_->take(styleFor(page_->form().size()));
    placeAt(suggested.left, suggested.top, !dragged_);
    topCentre_ = {(placed_.left + placed_.right) / 2, placed_.top};
}

void FrameWindow::settingsChanged(bool placesToo) {
    if (shownOpen() && (placesToo || styleFor(page_->form().size()).get() != &page_->style())) fit();
}

// The frame is at another place than the program gave it.
void FrameWindow::moved() {
    const RECT area = windowRect(handle_);
    if (IsIconic(handle_) || EqualRect(&area, &placed_)) return;
    placed_ = area;
    topCentre_ = {(area.left + area.right) / 2, area.top};
}

void FrameWindow::sized(bool minimised) {
    if (!std::exchange(minimised_, minimised) || minimised) return;
    fit();
    if (active()) focusPage();
}

void FrameWindow::focusPage() {
    if (page_ == nullptr) return;
    if (page_->takesInput()) return page_->keyboard().restoreFocus();
    screen_.quietly([&] { SetFocus(handle_); });
}

// A key that goes down or up in another program, or in a menu, does not come here.
void FrameWindow::activated(bool active) {
    if (page_ != nullptr) page_->keyboard().showCues(active && GetKeyState(VK_MENU) < 0);
    if (active) focusPage();
}

bool FrameWindow::systemCommand(WPARAM command) {
    if (command != about) return false;
    if (page_ == nullptr || !page_->takesInput()) return true;
    screen_.modal(
        [this](HWND owner) { MessageBoxW(owner, wide(screen_.identity.about, CP_UTF8).c_str(), L"About", MB_OK); });
    return true;
}

LRESULT CALLBACK FrameWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<FrameWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    std::optional<LRESULT> result;
    if (self != nullptr) runEvent(self->screen_, [&] { result = self->message(message, wParam, lParam); });
    return result ? *result : DefWindowProcW(window, message, wParam, lParam);
}

std::optional<LRESULT> FrameWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_CLOSE:
            if (page_ != nullptr && page_->takesInput()) screen_.event([this] { page_->form().closed(); });
            return 0;
        case WM_ACTIVATE: activated(LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0); return 0;
        case WM_SYSCOMMAND:
            if (systemCommand(wParam & 0xFFF0u)) return 0;
            return std::nullopt;
        case WM_EXITMENULOOP:
            if (page_ != nullptr) page_->keyboard().showCues(false);
            return std::nullopt;
        case WM_SETFOCUS: focusPage(); return 0;
        case WM_ENTERSIZEMOVE: dragged_ = true; return 0;
        case WM_EXITSIZEMOVE: dragged_ = false; return 0;
        case WM_MOVE: moved(); return 0;
        case WM_SIZE: sized(wParam == SIZE_MINIMIZED); return 0;
        case WM_GETDPISCALEDSIZE:
            if (page_ == nullptr) return std::nullopt;
            *reinterpret_cast<SIZE*>(lParam) = sizeAt(static_cast<int>(wParam));
            return TRUE;
        case WM_DPICHANGED: dpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
        case WM_DISPLAYCHANGE:
            measureEdges(dpiOf(handle_));
            settingsChanged(true);
            return 0;
        case WM_SETTINGCHANGE:
            screen_.styles().refresh();
            measureEdges(dpi_);
            settingsChanged(wParam == SPI_SETWORKAREA);
            return std::nullopt;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            screen_.styles().renew();
            measureEdges(dpi_);
            settingsChanged(false);
            return std::nullopt;
        default: return std::nullopt;
    }
}

}  // namespace vrix
