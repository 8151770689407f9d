#include "makers/win32/modal.h"

namespace vrix {

namespace {

std::wstring currentFolder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

}  // namespace

Modal::Modal(Win32Screen& screen)
    : quiet_((screen.pause(), screen.loudly())), owner_(screen.active()), folder_(currentFolder()) {
    for (const HWND window : screen.windows()) {
        if (window == owner_ || !IsWindowEnabled(window)) continue;
        others_.push_back(window);
        EnableWindow(window, FALSE);
    }
}

Modal::~Modal() {
    SetCurrentDirectoryW(folder_.c_str());
    for (const HWND window : others_) EnableWindow(window, TRUE);
}

}  // namespace vrix
