#pragma once

#include <windows.h>

#include <string>

namespace vrix {

// The tips of one window. A tip shows a text that its control has no room for, or does not say, while the pointer rests
// there.
class Tips {
public:
    // Sets the tip of a child of `owner`. An empty text takes it away.
    void set(HWND owner, HWND child, const std::wstring& text);
    // Tells the tip of a child of a move of the pointer that came before the tip was set.
    void pointerMoved(HWND child, LPARAM place) const;

private:
    HWND window_ = nullptr;  // made for the first tip; goes with its owner
};

}  // namespace vrix
