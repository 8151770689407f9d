#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "makers/win32/themed_controls.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

// Scope of a dialog of the platform: it opens in front of an up-to-date screen. Meanwhile all windows of the program
// are disabled: the owner by the dialog, the others here. The current folder is restored: a file dialog changes it even
// if told not to.
class Modal : Fixed {
public:
    explicit Modal(Win32Screen& screen);
    ~Modal();

    HWND owner() const { return owner_; }  // null while no window is shown

private:
    FlagGuard quiet_;
    HWND owner_;
    std::vector<HWND> others_;
    std::wstring folder_;
    ThemedControls themed_;
};

}  // namespace vrix
