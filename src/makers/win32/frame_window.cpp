#include "makers/win32/frame_window.h"

#include <algorithm>
#include <utility>

#include "makers/win32/control_window.h"
#include "makers/win32/form_window.h"
#include "makers/win32/library_function.h"
#include "makers/win32/modal.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

constexpr DWORD borderedStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD borderlessStyle = WS_POPUP | WS_CLIPCHILDREN;
constexpr UINT about = 0x10;  // the platform reserves the lowest four bits of a command

WindowKind kindOf(const Form& form) {
    return {frameClass, form.border() == Form::Border::fixed ? borderedStyle : borderlessStyle};
}

// The edges of a window at a scale, as the outer rectangle round an empty page at (0, 0).
RECT edgesAt(HWND window, int dpi) {
    RECT edges{};
    using Adjust = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    static const auto adjust = libraryFunction<Adjust>(L"user32.dll", "AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if (adjust != nullptr) {
        adjust(&edges, style, FALSE, 0, static_cast<UINT>(dpi));
    } else {
        AdjustWindowRectEx(&edges, style, FALSE, 0);
    }
    return edges;
}

// The size of a frame round a page, which may have a scale of its own.
SIZE outerSize(const RECT& edges, const Size& page, int pageDpi) {
    return {edges.right - edges.left + MulDiv(page.width, pageDpi, 96),
            edges.bottom - edges.top + MulDiv(page.height, pageDpi, 96)};
}

}  // namespace

FrameWindow::FrameWindow(Win32Screen& owner, const Form& first)
    : NativeWindow(owner, kindOf(first), nullptr),
      border_(first.border()),
      dpi_(dpiOf(handle())),
      edges_(edgesAt(handle(), dpi_)) {
    SetWindowTextW(handle(), wide(first.caption() + owner.identity.captionEnd).c_str());
    if (border_ == Form::Border::fixed && !owner.identity.about.empty()) {
        const HMENU menu = GetSystemMenu(handle(), FALSE);
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu, MF_STRING, about, L"&About");
    }
    // The form has centred its client area; the frame takes the same centre with its border.
    const Size& size = first.size();
    const SIZE outer = outerSize(edges_, size, fittingDpi(size));
    const int middle = MulDiv(2 * first.top() + size.height, systemDpi(), 192);
    topCentre_ = {MulDiv(2 * first.left() + size.width, systemDpi(), 192), middle - outer.cy / 2};
}

void FrameWindow::show(FormWindow& page) {
    FormWindow* before = std::exchange(page_, &page);
    page.moveInto(*this);
    page.keyboard().showCues(GetKeyState(VK_MENU) < 0);
    fit();
    page.setShown(true);
    if (before == nullptr) ShowWindow(handle(), SW_SHOW);
    if (before != nullptr && active()) focusPage();
    if (before != nullptr) before->setShown(false);
    // Paints the whole page once, after the layout.
    RedrawWindow(page.handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FrameWindow::hide() {
    ShowWindow(handle(), SW_HIDE);
    std::exchange(page_, nullptr)->setShown(false);
}

RECT FrameWindow::workArea() const { return workAreaOf(MonitorFromPoint(topCentre_, MONITOR_DEFAULTTONEAREST)); }

// The frame's size on a monitor of another scale.
SIZE FrameWindow::sizeAt(int dpi) const {
    return outerSize(edgesAt(handle(), dpi), page_->form().size(), screen().styles().withTextScale(dpi));
}

int FrameWindow::fittingDpi(const Size& page) const {
    constexpr int leastReadable = 60;
    const RECT work = workArea();
    const auto fits = [&](const SIZE& outer) {
        return outer.cx <= work.right - work.left && outer.cy <= work.bottom - work.top;
    };
    int dpi = screen().styles().withTextScale(dpi_);
    while (dpi > leastReadable && !fits(outerSize(edges_, page, dpi))) --dpi;
    return dpi;
}

std::shared_ptr<const Style> FrameWindow::styleFor(const Size& page) const {
    return screen().styles().at(fittingDpi(page));
}

bool FrameWindow::shownOpen() const { return page_ != nullptr && !minimised_; }

// Gives page and frame the scale that holds now. A minimised frame waits for this until it is restored.
void FrameWindow::fit() {
    if (!shownOpen()) return;
    const Size& size = page_->form().size();
    page_->take(styleFor(size));
    placeAt(topCentre_.x - outerSize(edges_, size, page_->style().dpi()).cx / 2, topCentre_.y, true);
}

void FrameWindow::placeAt(int left, int top, bool wholeOnMonitor) {
    const SIZE outer = outerSize(edges_, page_->form().size(), page_->style().dpi());
    RECT area{left, top, left + outer.cx, top + outer.cy};
    if (wholeOnMonitor) {
        const RECT work = workArea();
        OffsetRect(&area, std::min<int>(0, work.right - area.right), std::min<int>(0, work.bottom - area.bottom));
        OffsetRect(&area, std::max<int>(0, work.left - area.left), std::max<int>(0, work.top - area.top));
    }
    moveTo(area);
}

// The user, or the platform, has changed themes, colours or the work area.
void FrameWindow::surroundingsChanged(bool placesToo) {
    edges_ = edgesAt(handle(), dpi_);
    if (shownOpen() && (placesToo || styleFor(page_->form().size()).get() != &page_->style())) fit();
}

// The frame goes where the platform suggests. While it is dragged to another monitor, any other place would move it
// back to the first.
void FrameWindow::dpiChanged(int dpi, const RECT& suggested) {
    dpi_ = dpi;
    edges_ = edgesAt(handle(), dpi);
    if (!shownOpen()) return;
    topCentre_ = {(suggested.left + suggested.right) / 2, suggested.top};
    page_->take(styleFor(page_->form().size()));
    placeAt(suggested.left, suggested.top, !dragged_);
    topCentre_ = {(placed_.left + placed_.right) / 2, placed_.top};
}

// Records a move that the program did not make.
void FrameWindow::moved() {
    const RECT area = areaOf(handle());
    if (IsIconic(handle()) || EqualRect(&area, &placed_)) return;
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
    const FlagGuard quiet = screen().quietly();
    SetFocus(handle());
}

// Alt may have changed in another program, or in a menu: those key messages do not come here.
void FrameWindow::activated(bool active) {
    if (page_ != nullptr) page_->keyboard().showCues(active && GetKeyState(VK_MENU) < 0);
    if (active) focusPage();
}

bool FrameWindow::systemCommand(WPARAM command) {
    if (command != about) return false;
    if (page_ == nullptr || !page_->takesInput()) return true;
    const Modal modal(screen());
    MessageBoxW(modal.owner(), wide(screen().identity.about, CP_UTF8).c_str(), L"About", MB_OK);
    return true;
}

LRESULT FrameWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_CLOSE:
            if (page_ != nullptr && page_->takesInput()) screen().event([this] { page_->form().closed(); });
            return 0;
        case WM_ACTIVATE: activated(LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0); return 0;
        case WM_SYSCOMMAND:
            if (systemCommand(wParam & 0xFFF0u)) return 0;
            break;
        case WM_EXITMENULOOP:
            if (page_ != nullptr) page_->keyboard().showCues(false);
            break;
        case WM_SETFOCUS: focusPage(); return 0;
        case WM_ENTERSIZEMOVE: dragged_ = true; return 0;
        case WM_EXITSIZEMOVE: dragged_ = false; return 0;
        case WM_MOVE: moved(); return 0;
        case WM_SIZE: sized(wParam == SIZE_MINIMIZED); return 0;
        case WM_GETDPISCALEDSIZE:
            if (page_ == nullptr) break;
            *reinterpret_cast<SIZE*>(lParam) = sizeAt(static_cast<int>(wParam));
            return TRUE;
        case WM_DPICHANGED: dpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
        case WM_DISPLAYCHANGE:
            dpi_ = dpiOf(handle());
            surroundingsChanged(true);
            break;
        case WM_SETTINGCHANGE:
            screen().styles().refresh();
            surroundingsChanged(wParam == SPI_SETWORKAREA);
            break;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            screen().styles().renew();
            surroundingsChanged(false);
            break;
        default: break;
    }
    return NativeWindow::message(message, wParam, lParam);
}

}  // namespace vrix
