#include "screen.h"

#include <objidl.h>

#include <gdiplus.h>
#include <oleacc.h>

#include <algorithm>
#include <map>

namespace vrix::driver {

namespace {

constexpr UINT patience = 5000;  // milliseconds that a window may take for an answer

BOOL CALLBACK collect(HWND window, LPARAM list) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::string className(HWND window) {
    char name[64]{};
    GetClassNameA(window, name, sizeof(name));
    return name;
}

std::string row(HWND list, UINT lengthMessage, UINT textMessage, WPARAM index) {
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(0, ask(list, lengthMessage, index))) + 1, L'\0');
    ask(list, textMessage, index, reinterpret_cast<LPARAM>(text.data()));
    return inUtf8(text.c_str());
}

Pixels lookOnce(const RECT& area, int width, int height) {
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, before);
    BITMAPINFO form{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(), &form, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

void send(std::vector<INPUT> events) {
    const auto count = static_cast<UINT>(events.size());
    if (SendInput(count, events.data(), sizeof(INPUT)) != count) throw StepFailure("the screen takes no input");
}

// Converts to mouse units, 65536 to the screen's width and height.
LONG inMouseUnits(LONG place, int metric) {
    const LONG size = GetSystemMetrics(metric);
    return (place * 65536 + size - 1) / size;
}

INPUT mouse(POINT at, DWORD button) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button;
    event.mi.dx = inMouseUnits(at.x, SM_CXSCREEN);
    event.mi.dy = inMouseUnits(at.y, SM_CYSCREEN);
    return event;
}

INPUT key(WORD virtualKey, WORD character, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = virtualKey;
    event.ki.wScan = character != 0 ? character : static_cast<WORD>(MapVirtualKeyA(virtualKey, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags;
    return event;
}

WORD keyNamed(const std::string& name) {
    static const std::map<std::string, WORD> names{
        {"Tab", VK_TAB},    {"Shift", VK_SHIFT}, {"Alt", VK_MENU},      {"Ctrl", VK_CONTROL}, {"Enter", VK_RETURN},
        {"Esc", VK_ESCAPE}, {"Space", VK_SPACE}, {"Delete", VK_DELETE}, {"Home", VK_HOME},    {"End", VK_END},
        {"Up", VK_UP},      {"Down", VK_DOWN},   {"Left", VK_LEFT},     {"Right", VK_RIGHT},  {"F4", VK_F4}};
    if (name.size() == 1 && name.front() >= 'A' && name.front() <= 'Z') return static_cast<WORD>(name.front());
    const auto found = names.find(name);
    if (found == names.end()) throw StepFailure("no key is called \"" + name + '"');
    return found->second;
}

INPUT namedKey(const std::string& name, DWORD flags) {
    const WORD virtualKey = keyNamed(name);
    const bool extended = virtualKey >= VK_END && virtualKey <= VK_DELETE;  // beside the number pad
    return key(virtualKey, 0, flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0));
}

}  // namespace

std::string inUtf8(const wchar_t* text) {
    std::string narrowed(static_cast<std::size_t>(lstrlenW(text)) * 3 + 1, '\0');
    const auto room = static_cast<int>(narrowed.size());
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrowed.data(), room, nullptr, nullptr);
    return narrowed.c_str();
}

std::wstring inUtf16(const std::string& text) {
    std::wstring wide(text.size() + 1, L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide.c_str();
}

bool isClass(HWND window, const char* name) { return lstrcmpiA(className(window).c_str(), name) == 0; }

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, patience, &answer);
    return static_cast<LRESULT>(answer);
}

std::string textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
    ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    std::erase(text, L'\r');
    return inUtf8(text.c_str());
}

bool live(HWND window) {
    if (!IsWindowVisible(window)) return false;
    const HWND desktop = GetDesktopWindow();
    while (window != desktop && IsWindowEnabled(window)) window = GetAncestor(window, GA_PARENT);
    return window == desktop;
}

RECT areaOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

std::vector<HWND> controlsOf(HWND window) {
    std::vector<HWND> controls;
    EnumChildWindows(window, &collect, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::vector<HWND> windowsOf(DWORD process) {
    std::vector<HWND> all;
    EnumWindows(&collect, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [&](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        return owner != process;
    });
    return all;
}

HWND focusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

std::string spokenNameOf(HWND control) {
    // The platform names a list by the label in front of it, as it does a text box; Wine by its text.
    if (isClass(control, "COMBOBOX") || isClass(control, "LISTBOX")) {
        const HWND label = GetWindow(control, GW_HWNDPREV);
        return label != nullptr && isClass(label, "STATIC") ? textOf(label) : std::string();
    }
    IAccessible* object = nullptr;
    void** place = reinterpret_cast<void**>(&object);
    if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, place)))
        return {};
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    object->Release();
    const std::string spoken = name == nullptr ? std::string() : inUtf8(name);
    SysFreeString(name);
    return spoken;
}

std::vector<std::string> rowsOf(HWND list) {
    const bool combo = isClass(list, "COMBOBOX");
    std::vector<std::string> rows(static_cast<std::size_t>(ask(list, combo ? CB_GETCOUNT : LB_GETCOUNT)));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i] = combo ? row(list, CB_GETLBTEXTLEN, CB_GETLBTEXT, i) : row(list, LB_GETTEXTLEN, LB_GETTEXT, i);
    }
    return rows;
}

std::string contentOf(HWND control) {
    if (isClass(control, "BUTTON")) return ask(control, BM_GETCHECK) == BST_CHECKED ? "checked" : "unchecked";
    if (!isClass(control, "LISTBOX")) return textOf(control);
    std::string marked;
    const auto rows = rowsOf(control);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (ask(control, LB_GETSEL, i) > 0) marked += (marked.empty() ? "" : ", ") + rows[i];
    }
    return marked;
}

std::string listOf(HWND window) {
    std::string list = "\"" + textOf(window) + (window == GetForegroundWindow() ? "\" in front\n" : "\"\n");
    for (const HWND control : controlsOf(window)) {
        const RECT area = areaOf(control);
        list += "  " + className(control) + " \"" + textOf(control) + "\" at " + std::to_string(area.left) + ',' +
                std::to_string(area.top) + " to " + std::to_string(area.right) + ',' + std::to_string(area.bottom) +
                (live(control) ? "\n" : " takes nothing\n");
    }
    return list;
}

// Waits until several captures in a row are equal: the program may still draw after our last event. A screen that keeps
// changing is taken as it is.
Pixels lookAt(const RECT& area) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    Pixels pixels = lookOnce(area, width, height);
    for (int alike = 0, looks = 0; alike < 4 && looks < 100; ++looks) {
        Sleep(30);
        Pixels next = lookOnce(area, width, height);
        alike = next == pixels ? alike + 1 : 0;
        pixels = std::move(next);
    }
    return pixels;
}

void takePicture(const RECT& area, const std::string& file) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    Pixels pixels = lookAt(area);
    if (std::count(pixels.begin(), pixels.end(), pixels.front()) == static_cast<std::ptrdiff_t>(pixels.size())) {
        throw StepFailure("the window shows nothing but one colour");
    }
    ULONG_PTR session = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&session, &input, nullptr);
    constexpr CLSID png{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    Gdiplus::Bitmap bitmap(width, height, width * 4, PixelFormat32bppRGB, reinterpret_cast<BYTE*>(pixels.data()));
    if (bitmap.Save(inUtf16(file).c_str(), &png, nullptr) != Gdiplus::Ok)
        throw StepFailure("no picture can be kept as " + file);
}

// The display reports pointer moves asynchronously, and a late report of an older move puts the pointer back. So the
// pointer must stay at its place while the windows below it answer, several times in a row.
void moveTo(POINT point) {
    constexpr int enough = 4;
    constexpr int mostLooks = 500;
    int resting = 0;
    for (int look = 0; look < mostLooks && resting < enough; ++look) {
        POINT at{};
        GetCursorPos(&at);
        resting = at.x == point.x && at.y == point.y ? resting + 1 : 0;
        if (resting == 0) send({mouse(point, 0)});
        ask(GetForegroundWindow(), WM_NULL);
        ask(GetDesktopWindow(), WM_NULL);
        Sleep(5);
    }
    if (resting < enough) throw StepFailure("the pointer does not rest");
}

void drag(POINT from, POINT to) {
    moveTo(from);
    send({mouse(from, MOUSEEVENTF_LEFTDOWN), mouse(to, MOUSEEVENTF_LEFTUP)});
}

void typeCharacters(const std::string& text) {
    for (const wchar_t code : inUtf16(text)) {
        send({key(0, code, KEYEVENTF_UNICODE), key(0, code, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
    }
}

void pressKeys(const std::string& names) {
    std::vector<INPUT> down;
    std::vector<INPUT> up;
    for (std::size_t at = 0; at < names.size();) {
        const std::size_t end = std::min(names.find('+', at), names.size());
        const std::string name = names.substr(at, end - at);
        down.push_back(namedKey(name, 0));
        up.insert(up.begin(), namedKey(name, KEYEVENTF_KEYUP));
        at = end + 1;
    }
    down.insert(down.end(), up.begin(), up.end());
    send(std::move(down));
}

void holdKey(const std::string& name) { send({namedKey(name, 0)}); }

void releaseKey(const std::string& name) { send({namedKey(name, KEYEVENTF_KEYUP)}); }

}  // namespace vrix::driver
