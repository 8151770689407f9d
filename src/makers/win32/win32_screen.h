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

// The real screen. One native window for each form, made at its first showing, with one for each control.
class Win32Screen final : public Screen {
public:
    Win32Screen();
    ~Win32Screen() override;

    void formChanged(Form& form) override;
    void controlChanged(Control& control) override;
    void rowsChanged(Control& list, RowChange change, int row) override;
    void timerChanged(Timer& timer) override;
    Answer ask(const std::string& text, const std::string& title, Buttons buttons) override;
    Size screenSize() override;
    void quit() override;

    // Called behind each event of the program, and before the user is waited for in the middle of one.
    std::function<void()> onPause = [] {};

    // Handles what the user does until the program ends; no window is left then. Gives the exit code.
    int run();

    // Runs one event of the program and brings the screen up to date behind it. What comes in while the screen is
    // brought up to date is an echo, and what comes behind quit() is too late: neither is run.
    void event(const std::function<void()>& event);
    // Runs a change of the screen whose echoes are no doing of the user.
    void quietly(const std::function<void()>& change);
    // Brings the screen up to date and runs a dialog of the platform. All windows of the program but its owner are
    // disabled meanwhile; the dialog disables the owner itself.
    void modal(const std::function<void(HWND__* owner)>& dialog);

private:
    void catchUp();
    FormWindow* windowOf(Form& form) const;
    FormWindow* active() const;

    std::map<Form*, std::unique_ptr<FormWindow>> forms_;
    std::vector<Form*> changedForms_;  // in the order of their first change
    std::set<Control*> changedControls_;
    HWND__* timers_;  // a window that is never seen and takes the timers' messages
    bool quiet_ = false;
    bool ended_ = false;
};

}  // namespace vrix
