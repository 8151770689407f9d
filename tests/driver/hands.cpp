#include <algorithm>
#include <cstdlib>
#include <map>

#include "screen.h"

namespace vrix::driver {

namespace {

void send(std::vector<INPUT> events) {
    const auto count = static_cast<UINT>(events.size());
    if (SendInput(count, events.data(), sizeof(INPUT)) != count) throw StepFailure("the screen takes no input");
}

// A point in the units of the mouse, 65536 to the screen's width and height.
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
    static const std::map<std::string, WORD> names{{"Tab", VK_TAB},       {"Shift", VK_SHIFT}, {"Alt", VK_MENU},
                                                   {"Enter", VK_RETURN},  {"Esc", VK_ESCAPE},  {"Space", VK_SPACE},
                                                   {"Delete", VK_DELETE}, {"Home", VK_HOME},   {"End", VK_END},
                                                   {"Up", VK_UP},         {"Down", VK_DOWN},   {"F4", VK_F4}};
    const auto found = names.find(name);
    if (found == names.end()) throw StepFailure("no key is called \"" + name + '"');
    return found->second;
}

}  // namespace

// The screen reports the pointer's moves to the windows below it, and a late report of an older move takes the pointer
// back. So it must rest at its place while those windows answer, several times in a row.
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
    std::wstring characters(text.size() + 1, L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), characters.data(),
                                           static_cast<int>(characters.size()));
    std::vector<INPUT> events;
    for (const wchar_t character : characters.substr(0, static_cast<std::size_t>(length))) {
        events.push_back(key(0, character, KEYEVENTF_UNICODE));
        events.push_back(key(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    if (!events.empty()) send(std::move(events));
}

void pressKeys(const std::string& names) {
    std::vector<INPUT> down;
    std::vector<INPUT> up;
    for (std::size_t at = 0; at < names.size();) {
        const std::size_t end = std::min(names.find('+', at), names.size());
        const WORD virtualKey = keyNamed(names.substr(at, end - at));
        const bool extended = virtualKey >= VK_END && virtualKey <= VK_DELETE;  // beside the number pad
        const DWORD flags = extended ? KEYEVENTF_EXTENDEDKEY : 0;
        down.push_back(key(virtualKey, 0, flags));
        up.insert(up.begin(), key(virtualKey, 0, flags | KEYEVENTF_KEYUP));
        at = end + 1;
    }
    down.insert(down.end(), up.begin(), up.end());
    send(std::move(down));
}

}  // namespace vrix::driver
