#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace vrix {

// Keys that a form may give a meaning of its own.
enum class Key { altUp, altDown, home, end };

// One window of the program. It is made hidden and enabled, loads when it is first shown, and lives until the program
// ends.
class Form : public Container {
public:
    enum class Border { none, fixed };

    // `size` is that of the client area.
    Form(Screen& screen, std::string_view name, std::string_view caption, const Size& size,
         Border border = Border::fixed);
    virtual ~Form() = default;

    Form& form() override { return *this; }
    Bounds bounds() const override { return {0, 0, size_.width, size_.height}; }

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    const Size& size() const { return size_; }
    Border border() const { return border_; }
    int left() const { return left_; }  // of the client area on the screen, in 1/96 inch
    int top() const { return top_; }
    Screen& screen() const { return screen_; }

    bool loaded() const { return loaded_; }
    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }

    // Shows the form and returns at once. Before it is shown for the first time, it is centred and its start routine
    // runs.
    void show();
    void hide();
    void setEnabled(bool enabled);

    // All controls in reading order. Those on a frame come right behind their frame.
    std::vector<Control*> controls() const;
    // The control of that name, or null. Members of a control array are named with their index: "OrderOption(0)".
    Control* find(std::string_view name) const;

    // The pointer moved over the form itself or over its main frame.
    virtual void mouseMove() { resetButtons(); }
    // Puts all image buttons that are not disabled back to normal.
    void resetButtons();
    std::map<Key, std::function<void()>> shortcuts;  // that work wherever the focus is on the form
    const Control* firstFocus = nullptr;             // where the form opens; null: at its first box to fill
    const Control* defaultButton = nullptr;          // what Enter presses where the focus says nothing else
    // What lies between the title band and the row of buttons; null on a form that has neither.
    const Control* content = nullptr;

    // The user closed the window by its title bar.
    virtual void closed() = 0;

protected:
    // The form's own start routine, run once, at the end of loading.
    virtual void load() {}

private:
    Screen& screen_;
    std::string name_;
    std::string caption_;
    Size size_;
    Border border_;
    int left_ = 0;
    int top_ = 0;
    bool loaded_ = false;
    bool visible_ = false;
    bool enabled_ = true;
};

// Leaves one form for another: the old one is disabled and hidden, the new one shown and enabled, in this order.
void leaveFor(Form& from, Form& to);

}  // namespace vrix
