#pragma once

#include <windows.h>

#include "common/fixed.h"

namespace vrix {

// While it lives, new windows and dialogs get the platform's themed controls, not the classic ones. Their library is
// loaded by the first such window. That takes a tenth of the program's start, and the splash needs none.
class ThemedControls : Fixed {
public:
    ThemedControls();
    ~ThemedControls();

private:
    ULONG_PTR cookie_ = 0;
    bool active_;
};

}  // namespace vrix
