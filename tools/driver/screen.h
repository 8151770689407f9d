#pragma once

#include <windows.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

// The screen as a user has it: reads other programs' windows, and sends mouse and keyboard input.
namespace vrix::driver {

// A failed step, with a message.
class StepFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// All texts here are UTF-8.
std::string inUtf8(const wchar_t* text);
std::wstring inUtf16(const std::string& text);

bool isClass(HWND window, const char* name);
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
std::string textOf(HWND window);  // lines end with LF
bool live(HWND window);           // seen, and takes input
RECT areaOf(HWND window);
std::vector<HWND> controlsOf(HWND window);   // the visible ones, in reading order
std::vector<HWND> windowsOf(DWORD process);  // the visible ones, the front one first
HWND focusOf(HWND window);
std::string spokenNameOf(HWND control);  // the name that a screen reader gives it
std::vector<std::string> rowsOf(HWND list);
// The text, the current row, or the marked rows of an input; of a button whether it is checked.
std::string contentOf(HWND control);
std::string listOf(HWND window);  // with all its controls

using Pixels = std::vector<std::uint32_t>;  // row by row, from the top
// Captures a part of the screen, once it stops changing.
Pixels lookAt(const RECT& area);
// Saves a part of the screen as a PNG file, once it stops changing. Throws for a blank one.
void takePicture(const RECT& area, const std::string& file);

void moveTo(POINT point);
// Presses the left button at one place and lets go at another.
void drag(POINT from, POINT to);
// Types characters, whatever keys they lie on.
void typeCharacters(const std::string& text);
// Presses keys together: "Tab", "Shift+Tab", "Alt+N". Throws for a name that no key has.
void pressKeys(const std::string& names);
void holdKey(const std::string& name);
void releaseKey(const std::string& name);

}  // namespace vrix::driver
