#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "makers/headless/headless_windows.h"

namespace vrix {

// A user of windows without a screen. Everything the user does is an event of the program. It works on the enabled form
// that was shown last, or once on the form that at() names. What no user could do throws std::logic_error: work on a
// control that is hidden, disabled or not there, or after the program ended.
class HeadlessUser {
public:
    explicit HeadlessUser(HeadlessWindows& windows) : windows_(windows) {}

    // The form that the user works on.
    Form& form() const;
    HeadlessUser& at(std::string_view formName);

    HeadlessUser& press(std::string_view button);                           // and release it
    HeadlessUser& pressTask(std::string_view picture, bool inside = true);  // release inside or outside
    HeadlessUser& type(std::string_view textBox, const std::string& text);  // in place of its text
    HeadlessUser& check(std::string_view checkBox, bool checked = true);
    HeadlessUser& choose(std::string_view comboBox, int row);
    HeadlessUser& choose(std::string_view option);
    HeadlessUser& mark(std::string_view list, int row, bool marked = true);
    HeadlessUser& click(std::string_view picture);
    HeadlessUser& close();  // by the title bar

private:
    template <class Kind>
    Kind& reach(std::string_view name) const;
    HeadlessUser& event(const std::function<void()>& gesture);
    HeadlessWindows& windows_;
    std::string formName_;
};

}  // namespace vrix
