#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "common/fixed.h"
#include "forms/event.h"
#include "platform/screen.h"

struct HWND__;
struct tagMSG;

namespace vrix {

// What the windows say of the program.
struct Identity {
    std::string captionEnd;  // behind each caption
    std::string about;       // in UTF-8, shown by an entry of the window's menu; empty for no entry
};

class FormWindow;
class FrameWindow;
class Styles;
class TimerWindow;

// Sets a flag for its lifetime.
class FlagGuard : Fixed {
public:
    FlagGuard(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
    ~FlagGuard() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

// The real screen. Each form gets a native window when it is first shown, and each control a window on it. A form that
// is shown takes the frame of one that is hidden in the same event: to the user, all pages are one window.
class Win32Screen final : public Screen {
public:
    Win32Screen();
    ~Win32Screen() override;

    void formChanged(Form& form) override;
    void controlChanged(Control& control) override;
    void rowsChanged(Control& list, RowChange change) override;
    void focusWanted(Control& control) override { wanted_ = &control; }
    void timerChanged(Timer& timer) override;
    Answer ask(const std::string& text, const std::string& title, Buttons buttons) override;
    Size screenSize() override;
    void quit() override;
    void quitByFailure() override;

    Identity identity;  // to be set before the first window is shown

    // Called after each event of the program, and before a message box or a dialog in the middle of one.
    std::function<void()> onPause = [] {};

    // Handles what the user does until the program ends, then closes all windows. Gives the exit code.
    int run();

    // Runs one event of the program, then brings the screen up to date. An event is ignored if it comes from a change
    // that the program itself makes to the screen, or after quit().
    template <class Event>
    void event(const Event& event) {
        if (quiet_ || ended_) return;
        runEvent(*this, [&] {
            event();
            pause();
        });
    }
    // While the result lives, events caused by the program's own changes to the screen are ignored.
    FlagGuard quietly() { return {quiet_, true}; }
    bool quiet() const { return quiet_; }

    // For dialogs of the platform, which pass on what the user does meanwhile: brings the screen up to date.
    void pause();
    FlagGuard loudly() { return {quiet_, false}; }
    HWND__* active() const;  // the window in front; null where none is shown
    std::vector<HWND__*> windows() const;

    Styles& styles() { return *styles_; }

private:
    void catchUp();
    void show(Form& form);
    void hide(Form& form);
    FrameWindow& frameFor(const Form& form);
    bool comesBack(const Form& form);
    FormWindow* windowOf(Form& form) const;
    bool takesKey(tagMSG& message) const;

    std::unique_ptr<Styles> styles_;
    std::map<Form*, std::unique_ptr<FormWindow>> forms_;
    std::vector<std::unique_ptr<FrameWindow>> frames_;  // also those that are hidden at present; they go first
    std::vector<const Form*> way_;                      // the navigation stack; the form in front is the last
    std::vector<Form*> changedForms_;                   // in the order of their first change
    std::set<Control*> changedControls_;
    const Control* wanted_ = nullptr;  // what is to have the focus at the end of the event
    std::unique_ptr<TimerWindow> timers_;
    bool quiet_ = false;
    bool ended_ = false;
    int exitCode_ = 0;
};

// Says a sentence in UTF-8 in a message box, where no page is there to say it.
void tell(const std::string& sentence, const std::string& title);

}  // namespace vrix
