#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "platform/screen.h"

struct HWND__;

namespace vrix {

class FormWindow;

// The real screen. Each form gets a native window when it is first shown, and each control a window on it.
class Win32Screen final : public Screen {
public:
    Win32Screen();
    ~Win32Screen() override;

    void formChanged(Form& form) override;
    void controlChanged(Control& control) override;
    void rowsChanged(Control& list, RowChange change) override;
    void timerChanged(Timer& timer) override;
    Answer ask(const std::string& text, const std::string& title, Buttons buttons) override;
    Size screenSize() override;
    void quit() override;

    // Called after each event of the program, and before a message box or a dialog in the middle of one.
    std::function<void()> onPause = [] {};

    // Handles what the user does until the program ends, then closes all windows. Gives the exit code.
    int run();

    // Runs one event of the program, then brings the screen up to date. An event is ignored if it comes from a change
    // that the program itself makes to the screen, or after quit().
    void event(const std::function<void()>& event);
    // Changes the screen for the program. Events that this causes are ignored.
    void quietly(const std::function<void()>& change);
    // Brings the screen up to date and runs a dialog of the platform. Meanwhile all windows of the program are
    // disabled: the owner by the dialog, the others here.
    void modal(const std::function<void(HWND__* owner)>& dialog);

private:
    void catchUp();
    FormWindow* windowOf(Form& form) const;
    FormWindow* active() const;

    std::map<Form*, std::unique_ptr<FormWindow>> forms_;
    std::vector<Form*> changedForms_;  // in the order of their first change
    std::set<Control*> changedControls_;
    HWND__* timers_;  // receives the timers' messages and is never shown
    bool quiet_ = false;
    bool ended_ = false;
};

}  // namespace vrix
