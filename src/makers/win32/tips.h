#pragma once

#include <windows.h>

#include <set>
#include <string>

namespace vrix {

// The tips of one window: what a control has no room to show whole, shown while the pointer rests on it.
class Tips {
public:
    // Gives a child of `owner` a tip, another one, or with an empty text none.
    void set(HWND owner, HWND child, const std::string& text);

private:
    HWND window_ = nullptr;  // made for the first tip; goes with its owner
    std::set<HWND> tools_;
};

}  // namespace vrix
