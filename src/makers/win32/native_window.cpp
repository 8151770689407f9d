#include "makers/win32/native_window.h"

#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "forms/event.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

// Handles also come in messages, which any program can send. So objects are looked up by handle; a handle is never cast
// to an object.
std::unordered_map<HWND, NativeWindow*>& objects() {
    static std::unordered_map<HWND, NativeWindow*> all;
    return all;
}

// Not LR_SHARED: the platform would return the size that was loaded first for both.
HICON programIcon(int width, int height) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON,
                                         GetSystemMetrics(width), GetSystemMetrics(height), LR_DEFAULTCOLOR));
}

void registerClasses() {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof(kind);
    kind.lpfnWndProc = &DefWindowProcW;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
    kind.lpszClassName = formClass;
    RegisterClassExW(&kind);
    kind.hIcon = programIcon(SM_CXICON, SM_CYICON);
    kind.hIconSm = programIcon(SM_CXSMICON, SM_CYSMICON);
    kind.lpszClassName = frameClass;
    RegisterClassExW(&kind);
}

// The window is created at its place: a later move costs another call.
HWND makeWindow(const WindowKind& kind, HWND parent, const RECT& place, UINT_PTR id) {
    [[maybe_unused]] static const bool registered = (registerClasses(), true);
    const HWND window = CreateWindowExW(kind.extendedStyle, kind.className, L"", kind.style, place.left, place.top,
                                        place.right - place.left, place.bottom - place.top, parent,
                                        reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("A window could not be made.");
    return window;
}

}  // namespace

NativeWindow::NativeWindow(Win32Screen& screen, const WindowKind& kind, HWND parent, const RECT& place, UINT_PTR id)
    : screen_(screen), handle_(makeWindow(kind, parent, place, id)), placed_(place) {
    objects()[handle_] = this;
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NativeWindow::procedure)));
}

void NativeWindow::destroy() {
    if (handle_ == nullptr) return;
    SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
    objects().erase(handle_);
    DestroyWindow(std::exchange(handle_, nullptr));
}

NativeWindow* NativeWindow::of(HWND window) {
    const auto found = objects().find(window);
    return found == objects().end() ? nullptr : found->second;
}

LRESULT CALLBACK NativeWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    NativeWindow* self = of(window);
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    runEvent(self->screen_, [&] {
        if (self->takes(message)) result = self->message(message, wParam, lParam);
    });
    if (message == WM_NCDESTROY) {
        objects().erase(window);
        self->handle_ = nullptr;
    }
    return result;
}

LRESULT NativeWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(original_, handle_, message, wParam, lParam);
}

LRESULT NativeWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(handle_, message, wParam, lParam);
}

RECT NativeWindow::clientArea() const {
    RECT area{};
    GetClientRect(handle_, &area);
    return area;
}

void NativeWindow::moveTo(const RECT& place) {
    if (EqualRect(&place, &placed_)) return;
    placed_ = place;
    SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT areaOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

RECT workAreaOf(HMONITOR monitor) {
    MONITORINFO info{sizeof(info), {}, {}, 0};
    GetMonitorInfoW(monitor, &info);
    return info.rcWork;
}

}  // namespace vrix
