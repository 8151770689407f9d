// Works the windows of a program from outside, as a walk tells it:
//     vrix_driver WALK [NAME=VALUE ...]
// A walk is UTF-8 and has a step on each line; empty lines and lines that begin with "#" are none. Texts stand in
// double quotes as they are on the screen, single words need none, a name in braces stands for a value given to the
// driver. "pictures" names the folder for pictures; "hands=keyboard" leaves the mouse alone. What
// each window gives a screen reader to say is printed. The exit code is 0 for a walk that came true in every step.

#include <objbase.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "screen.h"

namespace vrix::driver {

namespace {

constexpr DWORD patience = 30000;  // milliseconds until a step times out
constexpr int looksAtList = 50;
constexpr DWORD betweenLooks = 10;

using Values = std::map<std::string, std::string>;
// What a step names: one text, or a text behind others on the page, as in "Cover Page 2" > "Path:".
using Target = std::vector<std::string>;

struct Step {
    std::string verb;
    std::vector<Target> targets;

    const Target& target(std::size_t i) const {
        if (i >= targets.size()) throw StepFailure("the step takes more than that");
        return targets[i];
    }
    const std::string& text(std::size_t i) const { return target(i).back(); }
    std::vector<std::string> textsFrom(std::size_t i) const {
        std::vector<std::string> texts;
        for (; i < targets.size(); ++i) texts.push_back(text(i));
        return texts;
    }
};

Step readStep(const std::string& source, const Values& values) {
    std::istringstream words(source);
    Step step;
    words >> step.verb;
    bool behind = false;
    for (std::string word; words >> std::quoted(word, '"', '\0'); behind = word == ">") {
        if (word == ">") continue;
        if (!behind) step.targets.emplace_back();
        std::string text = word;
        for (const auto& [name, value] : values) {
            const auto at = text.find('{' + name + '}');
            if (at != std::string::npos) text.replace(at, name.size() + 2, value);
        }
        step.targets.back().push_back(text);
    }
    return step;
}

std::string joined(const std::vector<std::string>& texts, const char* separator) {
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : separator) + text;
    return all;
}

bool isLabel(HWND control, const std::string& text) { return isClass(control, "STATIC") && textOf(control) == text; }
bool shows(HWND window, const std::string& text) {
    const auto controls = controlsOf(window);
    return std::any_of(controls.begin(), controls.end(), [&](HWND control) { return isLabel(control, text); });
}
bool isDialog(HWND window) { return isClass(window, "#32770"); }
// The buttons of a message box are in the language of the system, with numbers that are the same in all.
bool isButton(HWND control, const std::string& text) {
    const int number = text == "OK" ? IDOK : text == "Cancel" ? IDCANCEL : 0;
    const bool numbered = number != 0 && isDialog(GetParent(control)) && GetDlgCtrlID(control) == number;
    return isClass(control, "BUTTON") && (numbered || textOf(control) == text);
}

// Counts lines of text: each begins below a row of pixels that shows nothing but the background.
int linesIn(const Pixels& pixels, std::ptrdiff_t width) {
    int lines = 0;
    bool emptyBefore = true;
    for (auto row = pixels.begin(); row != pixels.end(); row += width) {
        const bool empty = std::all_of(row, row + width, [&](std::uint32_t pixel) { return pixel == pixels.front(); });
        if (emptyBefore && !empty) ++lines;
        emptyBefore = empty;
    }
    return lines;
}

POINT middleOf(const RECT& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }

// Works one program's windows as its user would. Every step waits until the screen is as it should be; one that times
// out throws StepFailure. Takes a picture of each window before the walk leaves it.
class Walker {
public:
    Walker(std::string pictures, bool byKeyboard) : pictures_(std::move(pictures)), byKeyboard_(byKeyboard) {}
    ~Walker() {
        if (process_ != nullptr) TerminateProcess(process_, 1);
    }
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    bool running() const { return process_ != nullptr; }

    // The screen as text and as a picture, for a failure.
    std::string sight() const {
        std::string words;
        for (const HWND window : windowsOf(processId_)) words += listOf(window);
        takePicture(areaOf(GetDesktopWindow()), pictures_ + "failure.png");
        return words;
    }

    void take(const Step& step) {
        using Action = void (Walker::*)(const Step&);
        static const std::map<std::string, Action> actions{
            {"start", &Walker::start},     {"end", &Walker::end},         {"page", &Walker::page},
            {"message", &Walker::message}, {"answer", &Walker::answer},   {"file", &Walker::file},
            {"press", &Walker::press},     {"slip", &Walker::press},      {"type", &Walker::type},
            {"check", &Walker::check},     {"uncheck", &Walker::check},   {"option", &Walker::check},
            {"choose", &Walker::choose},   {"mark", &Walker::mark},       {"key", &Walker::key},
            {"expect", &Walker::expect},   {"rows", &Walker::rows},       {"disabled", &Walker::disabled},
            {"focus", &Walker::focus},     {"picture", &Walker::picture}, {"list", &Walker::list},
            {"write", &Walker::write},     {"hold", &Walker::hold},       {"release", &Walker::hold},
            {"look", &Walker::look},       {"changed", &Walker::compare}, {"alike", &Walker::compare},
            {"beside", &Walker::beside},   {"point", &Walker::point},     {"tip", &Walker::tip},
            {"caption", &Walker::caption}, {"click", &Walker::clickHere}, {"lines", &Walker::lines},
            {"greyed", &Walker::greyed}};
        const auto found = actions.find(step.verb);
        if (found == actions.end()) throw StepFailure("there is no such step");
        if (!running() && step.verb != "start") throw StepFailure("the program does not run");
        (this->*found->second)(step);
    }

private:
    void start(const Step& step) {
        std::wstring command = inUtf16('"' + step.text(0) + '"');
        STARTUPINFOW how{};
        how.cb = sizeof(how);
        PROCESS_INFORMATION made{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &made)) {
            throw StepFailure("the program cannot be started: error " + std::to_string(GetLastError()));
        }
        process_ = made.hProcess;
        processId_ = made.dwProcessId;
    }

    void end(const Step& /*step*/) {
        await("end of the program", [&] { return WaitForSingleObject(process_, 0) == WAIT_OBJECT_0; });
        DWORD code = 0;
        GetExitCodeProcess(process_, &code);
        process_ = nullptr;
        if (code != 0) throw StepFailure("the program's exit code was " + std::to_string(code));
    }

    // Waits for a page, by labels that no page before it shows.
    void page(const Step& step) {
        enter(step.text(0), [texts = step.textsFrom(1)](HWND window) {
            const auto seen = [&](const std::string& text) { return shows(window, text); };
            return !isDialog(window) && std::all_of(texts.begin(), texts.end(), seen);
        });
    }

    // Waits for a message box, by its title and each line of its text.
    void message(const Step& step) {
        enter(step.text(0), [title = step.text(1), text = joined(step.textsFrom(2), "\n")](HWND window) {
            return isDialog(window) && textOf(window) == title && shows(window, text);
        });
    }

    void answer(const Step& step) {
        press(step);
        dialogEnds();
    }

    // A file dialog: types the path and Enter, or only Esc where no path is given.
    void file(const Step& step) {
        enter(step.text(0), [&](HWND window) {
            const HWND focus = focusOf(window);
            return isDialog(window) && textOf(window) == step.text(1) && focus != nullptr && isClass(focus, "EDIT");
        });
        if (step.targets.size() > 2) typeInto(focusOf(window_), step.text(2), step.text(2));
        leave();
        pressKeys(step.targets.size() > 2 ? "Enter" : "Esc");
        dialogEnds();
    }

    // Presses a button; with "slip" releases outside of it.
    void press(const Step& step) {
        const HWND button = findLive(step.target(0));
        leave();
        if (byKeyboard_) return reach(button), pressKeys("Space");
        const RECT area = areaOf(button);
        awaitFree(button, area);
        drag(middleOf(area), step.verb == "slip" ? POINT{area.right + 2, area.bottom + 2} : middleOf(area));
    }

    // Types a text, of which the box may show something else.
    void type(const Step& step) {
        const HWND box = findLive(step.target(0));
        click(box, areaOf(box));
        await("focus in the box", [&] { return focusOf(window_) == box; });
        typeInto(box, step.text(1), step.text(step.targets.size() > 2 ? 2 : 1));
    }

    void check(const Step& step) {
        const HWND box = findLive(step.target(0));
        const std::string wanted = step.verb == "uncheck" ? "unchecked" : "checked";
        if (contentOf(box) != wanted) click(box, areaOf(box), "Space");
        await("box that is " + wanted, [&] { return contentOf(box) == wanted; });
    }

    // Opens the list by mouse and chooses from it by keyboard.
    void choose(const Step& step) {
        const HWND box = findLive(step.target(0));
        const auto row = rowOf(box, step.text(1));
        click(box, areaOf(box));
        // A late report of an older place of the pointer can close the list again; F4 opens it without the pointer.
        const auto open = [&] { return ask(box, CB_GETDROPPEDSTATE) != 0; };
        for (int look = 0; look < looksAtList && !open(); ++look) Sleep(betweenLooks);
        if (!open()) pressKeys("F4");
        await("open list", open);
        pressKeys("Home");
        for (std::size_t i = 0; i < row; ++i) pressKeys("Down");
        await("way to the row", [&] { return static_cast<std::size_t>(ask(box, CB_GETCURSEL)) == row; });
        pressKeys("Enter");
        await("closed list", [&] { return ask(box, CB_GETDROPPEDSTATE) == 0; });
    }

    // Toggles the mark of a row.
    void mark(const Step& step) {
        const HWND list = findLive(step.target(0));
        const auto row = rowOf(list, step.text(1));
        const LRESULT before = ask(list, LB_GETSEL, row);
        RECT area{};
        ask(list, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
        click(list, area, row == 0 ? "Home" : "End");
        if (byKeyboard_) pressKeys("Space");
        await("change of the mark", [&] { return ask(list, LB_GETSEL, row) != before; });
    }

    void key(const Step& step) {
        await("window in front", [&] { return GetForegroundWindow() == window_; });
        leave();
        pressKeys(step.text(0));
    }

    // Types where the focus is.
    void write(const Step& step) { typeCharacters(step.text(0)); }

    void hold(const Step& step) { step.verb == "hold" ? holdKey(step.text(0)) : releaseKey(step.text(0)); }

    // Captures a control. Later steps compare: it has changed, or is equal again.
    void look(const Step& step) { seen_ = lookAt(areaOf(anyControl(step.target(0)))); }
    void compare(const Step& step) {
        const RECT area = areaOf(anyControl(step.target(0)));
        await("control that is " + step.verb, [&] { return (lookAt(area) == seen_) == (step.verb == "alike"); });
    }

    // Moves the pointer to the caption beside a picture.
    void beside(const Step& step) {
        leave();
        moveTo(middleOf(areaOf(labelOf(step.target(0)))));
    }

    // Clicks at the pointer's place.
    void clickHere(const Step& /*step*/) {
        POINT place{};
        GetCursorPos(&place);
        drag(place, place);
    }

    // Checks the number of lines that a label's text takes.
    void lines(const Step& step) {
        const RECT area = areaOf(labelOf(step.target(0)));
        await("label of " + step.text(1) + " lines",
              [&] { return std::to_string(linesIn(lookAt(area), area.right - area.left)) == step.text(1); });
    }

    // Moves the pointer to a control; or, where a second text says so, to a row of a list.
    void point(const Step& step) {
        const HWND control = anyControl(step.target(0));
        RECT area = areaOf(control);
        if (step.targets.size() > 1) {
            ask(control, LB_GETITEMRECT, rowOf(control, step.text(1)), reinterpret_cast<LPARAM>(&area));
            MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&area), 2);
        }
        moveTo(middleOf(area));
    }

    void tip(const Step& step) {
        await("such tip", [&] {
            const auto windows = windowsOf(processId_);
            return std::any_of(windows.begin(), windows.end(), [&](HWND window) {
                return isClass(window, "tooltips_class32") && textOf(window) == step.text(0);
            });
        });
    }

    void caption(const Step& step) {
        await("such caption", [&] { return textOf(window_) == step.text(0); });
    }

    void expect(const Step& step) {
        see(step, [&](HWND control) { return contentOf(control) == step.text(1); });
    }
    void rows(const Step& step) {
        see(step, [&](HWND list) { return rowsOf(list) == step.textsFrom(1); });
    }
    void disabled(const Step& step) {
        see(step, [](HWND control) {
            const bool readOnly = isClass(control, "EDIT") && (GetWindowLongA(control, GWL_STYLE) & ES_READONLY) != 0;
            return readOnly || !live(control);
        });
    }
    // Checks that a check box has no check mark and a greyed inside: not the page's colour.
    void greyed(const Step& step) {
        see(step, [](HWND box) {
            constexpr int middle = 6;  // of the mark, from the left
            const RECT area = areaOf(box);
            const Pixels pixels = lookAt(area);
            const LONG row = (area.bottom - area.top) / 2;
            return pixels[static_cast<std::size_t>(row * (area.right - area.left) + middle)] != pixels.front();
        });
    }
    void focus(const Step& step) {
        await("focus there", [&] { return spokenNameOf(focusOf(window_)) == step.text(0); });
    }
    void picture(const Step& /*step*/) { leave(); }
    void list(const Step& /*step*/) { std::cout << listOf(window_); }

    void await(const std::string& what, const std::function<bool()>& come) const {
        for (const ULONGLONG begin = GetTickCount64(); !come(); Sleep(betweenLooks)) {
            const bool ended = WaitForSingleObject(process_, 0) == WAIT_OBJECT_0 && !come();
            if (ended) throw StepFailure("the program ended, and there was no " + what);
            if (GetTickCount64() - begin > patience) throw StepFailure("waited in vain: there was no " + what);
        }
    }

    void see(const Step& step, const std::function<bool(HWND)>& isSo) const {
        await("control that is so", [&] {
            const HWND control = find(step.target(0));
            return control != nullptr && isSo(control);
        });
    }

    void enter(const std::string& name, const std::function<bool(HWND)>& isIt) {
        if (!name_.empty()) throw StepFailure("\"" + name_ + "\" went by without a picture");
        HWND front = nullptr;
        await("such window in front", [&] {
            front = GetForegroundWindow();
            const auto windows = windowsOf(processId_);
            return std::find(windows.begin(), windows.end(), front) != windows.end() && live(front) && isIt(front);
        });
        before_ = window_;
        window_ = front;
        if (pictured_.insert(name).second) name_ = name;
    }

    // Takes the window's picture if there is none yet. Moves the pointer off all controls first.
    void leave() {
        if (name_.empty()) return;
        POINT corner{3, 3};
        ClientToScreen(window_, &corner);
        moveTo(corner);
        const std::string number = std::to_string(pictured_.size());
        speak();
        takePicture(areaOf(window_), pictures_ + (number.size() < 2 ? "0" : "") + number + '-' + name_ + ".png");
        name_.clear();
    }

    // Prints what a screen reader says of the controls that take input. All of them must have a name.
    void speak() const {
        std::cout << '"' << textOf(window_) << "\": " << name_ << '\n';
        for (const HWND control : controlsOf(window_)) {
            const bool itsOwn = GetParent(control) == window_ || isClass(GetParent(control), "VrixForm");
            if ((GetWindowLongA(control, GWL_STYLE) & WS_TABSTOP) == 0 || !itsOwn) continue;
            const std::string spoken = spokenNameOf(control);
            std::cout << "    " << spoken << '\n';
            if (spoken.empty() && live(control) && !isDialog(window_))
                throw StepFailure("a control has no name to speak");
        }
    }

    void dialogEnds() {
        await("end of the dialog", [&] { return !IsWindow(window_); });
        window_ = before_;
    }

    // A button by its caption, an input by the label right before it.
    HWND find(const Target& target) const {
        std::size_t part = 0;
        HWND before = nullptr;
        for (const HWND control : controlsOf(window_)) {
            const std::string& text = target[part];
            if (part + 1 < target.size()) {
                part += isLabel(control, text) ? 1 : 0;
            } else if (isButton(control, text) ||
                       (before != nullptr && isLabel(before, text) && !isClass(control, "STATIC"))) {
                return control;
            }
            before = control;
        }
        return nullptr;
    }

    // A control that takes input, or else a label.
    HWND anyControl(const Target& target) const {
        const HWND control = find(target);
        return control != nullptr ? control : labelOf(target);
    }

    HWND labelOf(const Target& target) const {
        for (const HWND control : controlsOf(window_)) {
            if (isLabel(control, target.back())) return control;
        }
        throw StepFailure("there is no such control");
    }

    HWND findLive(const Target& target) const {
        await("\"" + joined(target, "\" > \"") + "\" that takes anything", [&] {
            const HWND found = find(target);
            return found != nullptr && live(found);
        });
        return find(target);
    }

    static std::size_t rowOf(HWND list, const std::string& text) {
        const auto rows = rowsOf(list);
        const auto row = std::find(rows.begin(), rows.end(), text);
        if (row == rows.end()) throw StepFailure("the list has no such row");
        return static_cast<std::size_t>(row - rows.begin());
    }

    void awaitFree(HWND control, const RECT& area) const {
        await("way to it: something lies over it",
              [&] { return GetForegroundWindow() == window_ && WindowFromPoint(middleOf(area)) == control; });
    }

    // By keyboard a key follows once the control has the focus.
    void click(HWND control, const RECT& area, const char* key = "") const {
        if (byKeyboard_) {
            reach(control);
            if (*key != '\0' && focusOf(window_) == control) pressKeys(key);
            return;
        }
        awaitFree(control, area);
        drag(middleOf(area), middleOf(area));
    }

    // Moves the focus to a control by Tab, and to an option by the arrows once its group is reached.
    void reach(HWND control) const {
        const auto isOption = [](HWND window) {
            return (GetWindowLongA(window, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON && isClass(window, "BUTTON");
        };
        for (int stops = 0; focusOf(window_) != control; ++stops) {
            if (stops == 60) throw StepFailure("no key leads to the control");
            const HWND before = focusOf(window_);
            pressKeys(isOption(before) && isOption(control) ? "Down" : "Tab");
            await("move of the focus", [&] { return focusOf(window_) != before; });
        }
    }

    void typeInto(HWND box, const std::string& text, const std::string& shown) const {
        for (const char* keys : {"Home", "Shift+End", "Delete"}) pressKeys(keys);
        await("empty box", [&] { return textOf(box).empty(); });
        typeCharacters(text);
        await("such text in the box", [&] { return textOf(box) == shown; });
    }

    std::string pictures_;
    bool byKeyboard_;
    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
    HWND window_ = nullptr;  // the one that the steps are about
    HWND before_ = nullptr;  // the one before it: the page under a dialog
    std::string name_;       // of the window, until its picture is taken
    std::set<std::string> pictured_;
    Pixels seen_;  // by the last look
};

void walk(std::istream& stream, const Values& values) {
    Walker walker(values.at("pictures"), values.contains("hands") && values.at("hands") == "keyboard");
    std::string source;
    int line = 0;
    try {
        for (++line; std::getline(stream, source); ++line) {
            const Step step = readStep(source, values);
            if (!step.verb.empty() && step.verb.front() != '#') walker.take(step);
        }
        if (walker.running()) throw StepFailure("the program still runs at the end of the walk");
    } catch (const StepFailure& failure) {
        throw StepFailure("line " + std::to_string(line) + ": " + source + '\n' + failure.what() +
                          "\nOn the screen:\n" + walker.sight());
    }
}

}  // namespace

}  // namespace vrix::driver

int wmain(int count, wchar_t** arguments) {
    std::vector<std::string> words;
    std::transform(arguments + 1, arguments + count, std::back_inserter(words), &vrix::driver::inUtf8);
    vrix::driver::Values values;
    for (const std::string& word : words) values[word.substr(0, word.find('='))] = word.substr(word.find('=') + 1);
    CoInitialize(nullptr);
    try {
        std::ifstream stream(std::filesystem::path(vrix::driver::inUtf16(words.at(0))));
        if (!stream) throw std::runtime_error("the walk cannot be read");
        vrix::driver::walk(stream, values);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << (words.empty() ? "vrix_driver" : words[0]) << ", " << failure.what() << std::endl;
        return 1;
    }
}
