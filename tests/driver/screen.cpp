#include "screen.h"

#include <oleacc.h>

#include <algorithm>

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

std::string narrow(const wchar_t* text) {
    char narrowed[4096]{};
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrowed, sizeof(narrowed) - 1, nullptr, nullptr);
    return narrowed;
}

// Wide, since Wine does not narrow the rows of a list on their way from another program.
std::string row(HWND list, UINT lengthMessage, UINT textMessage, WPARAM index) {
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(0, ask(list, lengthMessage, index))) + 1, L'\0');
    DWORD_PTR length = 0;
    const auto place = reinterpret_cast<LPARAM>(text.data());
    SendMessageTimeoutW(list, textMessage, index, place, SMTO_ABORTIFHUNG, patience, &length);
    return narrow(text.c_str());
}

}  // namespace

bool isClass(HWND window, const char* name) { return lstrcmpiA(className(window).c_str(), name) == 0; }

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, patience, &answer);
    return static_cast<LRESULT>(answer);
}

std::string textOf(HWND window) {
    std::string text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, '\0');
    ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.c_str();
}

bool live(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window) && IsWindowEnabled(GetAncestor(window, GA_ROOT));
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
    IAccessible* object = nullptr;
    void** place = reinterpret_cast<void**>(&object);
    if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, place)))
        return {};
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    object->Release();
    const std::string spoken = name == nullptr ? std::string() : narrow(name);
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

}  // namespace vrix::driver
