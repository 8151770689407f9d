#pragma once

#include <windows.h>

#include <string>

namespace vrix {

// The tips of one window. A tip shows a text that its control has no room for, or does not say, while the pointer rests
// there.
class Tips {
public:
    explicit Tips(HWND owner) : owner_(owner) {}

    // Sets the tip of a child of the owner: a text that it has no room to show whole, or what its caption does not say.
    // An empty text takes the tip away.
    void set(HWND child, const std::wstring& text);
    // The same for a place in a child that the pointer has just moved to.
    void setAt(HWND child, LPARAM place, const std::wstring& text);

private:
    HWND owner_;
    HWND window_ = nullptr;  // made for the first tip; goes with its owner
};

}  // namespace vrix
