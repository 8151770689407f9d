#include "walker.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "hands.h"
#include "picture.h"
#include "screen.h"

namespace vrix::driver {

namespace {

constexpr DWORD patience = 30000;  // milliseconds until a step has waited in vain
constexpr DWORD betweenLooks = 10;

std::string quoted(const Target& target) {
    std::string text;
    for (const std::string& part : target) text += (text.empty() ? "\"" : " > \"") + part + '"';
    return text;
}

bool isDialog(HWND window) { return isClass(window, "#32770"); }

bool shows(HWND window, const std::string& text) {
    const auto controls = controlsOf(window);
    return std::any_of(controls.begin(), controls.end(), [&](HWND control) {
        return kindOf(control) == Kind::label ? textOf(control) == text
                                              : kindOf(control) == Kind::button && captionOf(control) == text;
    });
}

// The first control that `isIt`, behind the labels that lead to it.
HWND findBehind(HWND window, const Target& target, const std::function<bool(HWND, HWND)>& isIt) {
    const auto controls = controlsOf(window);
    auto at = controls.begin();
    for (std::size_t part = 0; part + 1 < target.size(); ++part) {
        at = std::find_if(at, controls.end(), [&](HWND control) {
            return kindOf(control) == Kind::label && textOf(control) == target[part];
        });
    }
    for (; at != controls.end(); ++at) {
        if (isIt(at == controls.begin() ? nullptr : *(at - 1), *at)) return *at;
    }
    return nullptr;
}

}  // namespace

const std::map<std::string, Walker::Action>& Walker::actions() {
    static const std::map<std::string, Action> table{
        {"start", &Walker::start},       {"end", &Walker::end},         {"page", &Walker::page},
        {"message", &Walker::message},   {"answer", &Walker::answer},   {"file", &Walker::file},
        {"close", &Walker::closeWindow}, {"picture", &Walker::picture}, {"list", &Walker::list},
        {"press", &Walker::press},       {"slip", &Walker::slip},       {"check", &Walker::check},
        {"uncheck", &Walker::check},     {"option", &Walker::check},    {"type", &Walker::type},
        {"choose", &Walker::choose},     {"mark", &Walker::mark},       {"unmark", &Walker::mark},
        {"key", &Walker::key},           {"expect", &Walker::expect},   {"rows", &Walker::rows},
        {"disabled", &Walker::disabled}, {"focus", &Walker::focus}};
    return table;
}

Walker::~Walker() {
    if (process_ == nullptr) return;
    TerminateProcess(process_, 1);
    CloseHandle(process_);
}

void Walker::take(const Step& step) {
    const auto found = actions().find(step.verb);
    if (found == actions().end()) throw StepFailure("there is no such step");
    if (process_ == nullptr && step.verb != "start") throw StepFailure("the program does not run");
    (this->*found->second)(step);
}

std::string Walker::sight() const {
    std::string words;
    for (const HWND window : windowsOf(processId_)) words += "  " + sketchOf(window) + '\n';
    return words.empty() ? "  no window of the program\n" : words;
}

void Walker::pictureOfFailure() const {
    if (!pictures_.empty()) takePicture(areaOf(GetDesktopWindow()), pictures_ + "failure.png");
}

void Walker::await(const std::string& what, const std::function<bool()>& come) const {
    for (const ULONGLONG begin = GetTickCount64(); !come(); Sleep(betweenLooks)) {
        if (WaitForSingleObject(process_, 0) == WAIT_OBJECT_0 && !come()) {
            DWORD code = 0;
            GetExitCodeProcess(process_, &code);
            throw StepFailure("the program ended with exit code " + std::to_string(code) + " before there was " + what);
        }
        if (GetTickCount64() - begin > patience) throw StepFailure("waited in vain for " + what);
    }
}

HWND Walker::awaitWindow(const std::string& what, const std::function<bool(HWND)>& isIt) const {
    HWND found = nullptr;
    await(what, [&] {
        const auto windows = windowsOf(processId_);
        const auto at = std::find_if(windows.begin(), windows.end(), [&](HWND window) {
            return live(window) && window == GetForegroundWindow() && isIt(window);
        });
        found = at == windows.end() ? nullptr : *at;
        return found != nullptr;
    });
    return found;
}

void Walker::enter(HWND window, const std::string& name) {
    if (!name_.empty()) throw StepFailure("\"" + name_ + "\" went by without a picture");
    window_ = window;
    if (pictured_.insert(name).second) name_ = name;
}

// Keeps the window's picture if it has none yet. The pointer goes aside first, to where it is over no control.
void Walker::leave() {
    if (name_.empty()) return;
    const RECT area = areaOf(window_);
    POINT corner{3, 3};
    ClientToScreen(window_, &corner);
    hands::moveTo(PtInRect(&area, corner) ? corner : POINT{area.left, area.top});
    keepPicture(std::exchange(name_, {}));
}

void Walker::keepPicture(const std::string& name) {
    if (pictures_.empty()) return;
    char number[16];
    std::snprintf(number, sizeof(number), "%02d-", ++pictureCount_);
    takePicture(areaOf(window_), pictures_ + number + name + ".png");
}

void Walker::start(const Step& step) {
    if (process_ != nullptr) throw StepFailure("the program runs already");
    std::string command = '"' + step.text(0) + '"';
    STARTUPINFOA how{};
    how.cb = sizeof(how);
    PROCESS_INFORMATION made{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &made)) {
        throw StepFailure("the program cannot be started: error " + std::to_string(GetLastError()));
    }
    CloseHandle(made.hThread);
    process_ = made.hProcess;
    processId_ = made.dwProcessId;
}

void Walker::end(const Step& step) {
    await("the end of the program", [&] { return WaitForSingleObject(process_, 0) == WAIT_OBJECT_0; });
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    CloseHandle(std::exchange(process_, nullptr));
    const std::string wanted = step.arguments.empty() ? "0" : step.text(0);
    if (std::to_string(code) != wanted) throw StepFailure("the program's exit code was " + std::to_string(code));
}

void Walker::page(const Step& step) {
    const auto texts = step.textsFrom(1);
    enter(awaitWindow("a window in front that shows " + quoted(texts),
                      [&](HWND window) {
                          return !isDialog(window) && std::all_of(texts.begin(), texts.end(), [&](const auto& text) {
                              return shows(window, text);
                          });
                      }),
          step.text(0));
}

void Walker::message(const Step& step) {
    const HWND box = awaitWindow("a message with the title \"" + step.text(1) + '"',
                                 [&](HWND window) { return isDialog(window) && textOf(window) == step.text(1); });
    std::string wanted;
    for (const std::string& line : step.textsFrom(2)) wanted += (wanted.empty() ? "" : "\n") + line;
    before_ = window_;
    enter(box, step.text(0));
    await("the message's text", [&] {
        const auto controls = controlsOf(box);
        return std::any_of(controls.begin(), controls.end(), [&](HWND control) {
            std::string text = textOf(control);
            std::erase(text, '\r');
            return kindOf(control) == Kind::label && text == wanted;
        });
    });
}

void Walker::answer(const Step& step) {
    press(step);
    await("the end of the message", [&] { return !IsWindow(window_); });
    window_ = before_;
}

// A file dialog: types the path and Enter, or only Esc where no path is given.
void Walker::file(const Step& step) {
    before_ = window_;
    enter(awaitWindow("a file dialog with the title \"" + step.text(1) + '"',
                      [&](HWND window) { return isDialog(window) && textOf(window) == step.text(1); }),
          step.text(0));
    if (step.arguments.size() > 2) {
        HWND box = nullptr;
        await("the box for the file's name", [&] {
            box = focusOf(window_);
            return box != nullptr && isClass(box, "EDIT");
        });
        typeInto(box, step.text(2));
    }
    leave();
    hands::keys(step.arguments.size() > 2 ? "Enter" : "Esc");
    await("the end of the file dialog", [&] { return !IsWindow(window_); });
    window_ = before_;
}

// Closes the window by the button in its frame.
void Walker::closeWindow(const Step& /*step*/) {
    leave();
    const RECT area = areaOf(window_);
    const LONG y = area.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYSIZE) / 2;
    for (LONG x = area.right; x > area.left; --x) {
        if (ask(window_, WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) continue;
        return hands::click({x - GetSystemMetrics(SM_CXSIZE) / 2, y});
    }
    throw StepFailure("the window has no button to close it");
}

void Walker::picture(const Step& step) {
    name_ = step.text(0);
    leave();
}

void Walker::list(const Step& /*step*/) { std::fputs(listOf(window_).c_str(), stdout); }

HWND Walker::findInput(const Target& target) const {
    return findBehind(window_, target, [&](HWND label, HWND control) {
        return kindOf(control) == Kind::input && label != nullptr && kindOf(label) == Kind::label &&
               textOf(label) == target.back();
    });
}

HWND Walker::findButton(const Target& target) const {
    return findBehind(window_, target, [&](HWND, HWND control) {
        return kindOf(control) == Kind::button && captionOf(control) == target.back();
    });
}

HWND Walker::findControl(const Target& target) const {
    const HWND input = findInput(target);
    return input != nullptr ? input : findButton(target);
}

HWND Walker::liveInput(const Target& target) const {
    HWND input = nullptr;
    await("an input that takes something, behind the label " + quoted(target), [&] {
        input = findInput(target);
        return input != nullptr && live(input);
    });
    return input;
}

HWND Walker::liveButton(const Target& target) const {
    HWND button = nullptr;
    await("a button " + quoted(target) + " that can be pressed", [&] {
        button = findButton(target);
        return button != nullptr && live(button);
    });
    return button;
}

// The middle of an area, once nothing lies over it.
POINT Walker::reachable(HWND control, const RECT& area) const {
    const POINT middle = hands::middleOf(area);
    await("\"" + textOf(control) + "\" to lie in front", [&] {
        const HWND top = GetAncestor(control, GA_ROOT);
        return WindowFromPoint(middle) == control && (top == GetForegroundWindow() || isClass(top, "ComboLBox"));
    });
    return middle;
}

void Walker::click(HWND control) const { hands::click(reachable(control, areaOf(control))); }

void Walker::typeInto(HWND box, const std::string& text) const {
    if (!textOf(box).empty()) {
        hands::keys("Home");
        hands::keys("Shift+End");
        hands::keys("Delete");
        await("the box to become empty", [&] { return textOf(box).empty(); });
    }
    hands::type(text);
    await("the typed text in the box, which holds \"" + textOf(box) + '"', [&] { return textOf(box) == text; });
}

void Walker::press(const Step& step) {
    const HWND button = liveButton(step.target(0));
    leave();
    click(button);
}

// Presses a button and lets go outside of it.
void Walker::slip(const Step& step) {
    const HWND button = liveButton(step.target(0));
    leave();
    const RECT area = areaOf(button);
    hands::drag(reachable(button, area), {area.right + 2, area.bottom + 2});
}

void Walker::check(const Step& step) {
    const HWND box = liveButton(step.target(0));
    const std::string wanted = step.verb == "uncheck" ? "unchecked" : "checked";
    if (contentOf(box) != wanted) click(box);
    await(quoted(step.target(0)) + " to be " + wanted, [&] { return contentOf(box) == wanted; });
}

void Walker::type(const Step& step) {
    const HWND box = liveInput(step.target(0));
    click(box);
    await("the focus in the box", [&] { return focusOf(window_) == box; });
    typeInto(box, step.text(1));
}

void Walker::choose(const Step& step) {
    const HWND box = liveInput(step.target(0));
    click(box);
    HWND list = nullptr;
    await("the opened list", [&] {
        const auto windows = windowsOf(processId_);
        const auto at = std::find_if(windows.begin(), windows.end(), [](HWND w) { return isClass(w, "ComboLBox"); });
        list = at == windows.end() ? nullptr : *at;
        return list != nullptr && ask(box, CB_GETDROPPEDSTATE) != 0;
    });
    const auto rows = rowsOf(box);
    const auto row = std::find(rows.begin(), rows.end(), step.text(1));
    if (row == rows.end()) throw StepFailure("the list has no such row");
    RECT area{};
    ask(list, LB_GETITEMRECT, static_cast<WPARAM>(row - rows.begin()), reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
    hands::click(reachable(list, area));
    await("the chosen row in the closed box",
          [&] { return ask(box, CB_GETDROPPEDSTATE) == 0 && contentOf(box) == step.text(1); });
}

void Walker::mark(const Step& step) {
    const HWND list = liveInput(step.target(0));
    const auto rows = rowsOf(list);
    const auto found = std::find(rows.begin(), rows.end(), step.text(1));
    if (found == rows.end()) throw StepFailure("the list has no such row");
    const auto row = static_cast<WPARAM>(found - rows.begin());
    const bool wanted = step.verb == "mark";
    const auto marked = [&] { return ask(list, LB_GETSEL, row) > 0; };
    RECT area{};
    ask(list, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
    if (marked() != wanted) hands::click(reachable(list, area));
    await("the row's mark to change", [&] { return marked() == wanted; });
}

void Walker::key(const Step& step) {
    await("the window in front", [&] { return GetForegroundWindow() == window_; });
    hands::keys(step.text(0));
}

void Walker::expect(const Step& step) {
    await(quoted(step.target(0)) + " with \"" + step.text(1) + '"', [&] {
        const HWND control = findControl(step.target(0));
        return control != nullptr && contentOf(control) == step.text(1);
    });
}

void Walker::rows(const Step& step) {
    await("these rows in " + quoted(step.target(0)), [&] {
        const HWND list = findInput(step.target(0));
        return list != nullptr && rowsOf(list) == step.textsFrom(1);
    });
}

void Walker::disabled(const Step& step) {
    await(quoted(step.target(0)) + " to take nothing", [&] {
        const HWND control = findControl(step.target(0));
        return control != nullptr && !IsWindowEnabled(control);
    });
}

void Walker::focus(const Step& step) {
    await("the focus on \"" + step.text(0) + '"', [&] {
        const HWND control = focusOf(window_);
        return control != nullptr && spokenNameOf(control) == step.text(0);
    });
}

}  // namespace vrix::driver
