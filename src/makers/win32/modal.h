#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "makers/win32/themed_controls.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

// What a dialog of the platform needs: it comes in front of a screen that is up to date. While this lasts, all windows
// of the program are disabled: the owner by the dialog, the others here. The current folder stays: a file dialog takes
// the program to the folder of the file, even if it is told not to.
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
