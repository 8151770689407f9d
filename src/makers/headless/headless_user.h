#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "makers/headless/headless_windows.h"

namespace vrix {

// A user of windows without a screen. Every gesture is one event of the program. It works on the form shown last that
// takes input, or on the one named by at(); a control that is hidden or disabled there cannot be reached. A gesture
// that no user could make throws std::logic_error.
class HeadlessUser {
public:
    explicit HeadlessUser(HeadlessWindows& windows) : windows_(windows) {}

    // The form that takes input, or of that name.
    Form& form() const;
    HeadlessUser& at(std::string_view formName);

    HeadlessUser& press(std::string_view button);                           // and releases it
    HeadlessUser& pressTask(std::string_view picture, bool inside = true);  // lets go inside the picture or outside
    HeadlessUser& type(std::string_view textBox, const std::string& text);  // in place of what it held
    HeadlessUser& check(std::string_view checkBox, bool checked = true);
    HeadlessUser& choose(std::string_view comboBox, int row);
    HeadlessUser& choose(std::string_view option);
    HeadlessUser& mark(std::string_view list, int row, bool marked = true);
    HeadlessUser& click(std::string_view picture);
    HeadlessUser& close();  // by the window frame

private:
    template <class Kind>
    Kind& reach(std::string_view name, ControlKind kind) const;
    HeadlessUser& event(const std::function<void()>& gesture);
    HeadlessWindows& windows_;
    std::string formName_;
};

}  // namespace vrix
