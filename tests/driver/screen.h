#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vrix::driver {

// A step that did not come true, told as a sentence.
class StepFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class Kind { label, button, input, other };

// What a user can see of a window that belongs to another program.
Kind kindOf(HWND window);
bool isClass(HWND window, const char* name);
std::string textOf(HWND window);
// The text as it is shown, and as a screen reader says it: without key marks.
std::string captionOf(HWND button);
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
RECT areaOf(HWND window);
bool live(HWND window);  // seen, and takes input

// The visible controls of a window, in reading order.
std::vector<HWND> controlsOf(HWND window);
// The visible windows of a process, the front one first.
std::vector<HWND> windowsOf(DWORD process);
HWND focusOf(HWND window);
// The name by which a screen reader calls what has the focus.
std::string spokenNameOf(HWND control);

std::vector<std::string> rowsOf(HWND list);
// What an input holds: a text, the current row, the marked rows; of a button whether it is checked.
std::string contentOf(HWND control);

// The window in one sentence, and with all its controls.
std::string sketchOf(HWND window);
std::string listOf(HWND window);

}  // namespace vrix::driver
