#pragma once

#include <windows.h>

#include <string>

namespace vrix {

// The tooltips of one window. A tooltip shows a text that its control has no room for, or does not show, while the
// pointer rests there.
class Tips {
public:
    explicit Tips(HWND owner) : owner_(owner) {}

    // Sets the tooltip of a child of the owner. An empty text removes it.
    void set(HWND child, const std::wstring& text);
    // The same for a place in a child that the pointer has just moved to.
    void setAt(HWND child, LPARAM place, const std::wstring& text);

private:
    HWND owner_;
    HWND window_ = nullptr;  // created for the first tooltip; destroyed with its owner
};

}  // namespace vrix
