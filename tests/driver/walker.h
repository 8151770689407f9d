#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "script.h"

namespace vrix::driver {

// Works one program's windows as its user would, step by step. Every step waits until the screen is as it should be;
// one that waits in vain throws StepFailure. Each window that the walk meets gets its picture before it is left.
class Walker {
public:
    explicit Walker(std::string pictures) : pictures_(std::move(pictures)) {}
    ~Walker();
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    void take(const Step& step);
    bool running() const { return process_ != nullptr; }
    // What stands on the screen, in words.
    std::string sight() const;
    // A picture of the whole screen.
    void pictureOfFailure() const;

private:
    using Action = void (Walker::*)(const Step&);
    static const std::map<std::string, Action>& actions();

    // The program and its windows.
    void start(const Step& step);
    void end(const Step& step);
    void page(const Step& step);
    void message(const Step& step);
    void answer(const Step& step);
    void file(const Step& step);
    void closeWindow(const Step& step);
    void picture(const Step& step);
    void list(const Step& step);

    // What the user does.
    void press(const Step& step);
    void slip(const Step& step);
    void check(const Step& step);
    void type(const Step& step);
    void choose(const Step& step);
    void mark(const Step& step);
    void key(const Step& step);

    // What the user sees.
    void expect(const Step& step);
    void rows(const Step& step);
    void disabled(const Step& step);
    void focus(const Step& step);

    void await(const std::string& what, const std::function<bool()>& come) const;
    HWND awaitWindow(const std::string& what, const std::function<bool(HWND)>& isIt) const;
    void enter(HWND window, const std::string& name);
    void leave();
    void keepPicture(const std::string& name);
    HWND findInput(const Target& target) const;
    HWND findButton(const Target& target) const;
    HWND findControl(const Target& target) const;
    HWND liveInput(const Target& target) const;
    HWND liveButton(const Target& target) const;
    POINT reachable(HWND control, const RECT& area) const;
    void click(HWND control) const;
    void typeInto(HWND box, const std::string& text) const;

    std::string pictures_;
    int pictureCount_ = 0;
    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
    HWND window_ = nullptr;  // the one that the steps are about
    HWND before_ = nullptr;  // the page under a message
    std::string name_;       // of the window, until its picture is taken
    std::set<std::string> pictured_;
};

}  // namespace vrix::driver
