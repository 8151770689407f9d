#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/fixed.h"
#include "forms/place.h"

namespace vrix {

class Control;
class Form;

// What can hold controls: a form, or a frame on it.
class Container : Fixed {
public:
    virtual Form& form() = 0;
    virtual Bounds bounds() const = 0;
    const std::vector<Control*>& children() const { return children_; }

protected:
    ~Container() = default;

private:
    friend class Control;
    std::vector<Control*> children_;  // in the order of declaration, which is reading and tab order
};

// One control of a form: the base of all its classes. Controls are fields of their form and live as long as it does.
class Control : Fixed {
public:
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    Form& form() const { return parent_.form(); }
    const Container& parent() const { return parent_; }
    Bounds bounds() const { return resolve(place_, parent_.bounds()); }

    void setLeft(int left);  // in its container, in 1/96 inch; the width stays

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    // Asks the screen to give the control the focus at the end of the event.
    void takeFocus();
    // The letter that presses the control together with Alt; 0 where there is none. The caption contains it without a
    // mark.
    char accessKey() const { return accessKey_; }

    // The control's content as the store keeps it: the text of a text box, "0" or "1" for a check box, the number of
    // the current row for a combo box. Empty for controls that take no input.
    virtual std::string stored() const { return {}; }
    // Sets the content from its stored form. Where a number is needed: failure 13 for text that is none, 6 for one
    // beyond 16 bits, 380 for one that the control refuses.
    virtual void restore(const std::string& /*text*/) {}
    // Empties the content: no text, no check mark, no rows.
    virtual void clear() {}

protected:
    Control(Container& parent, std::string_view name, const Place& place, char accessKey = 0);
    void changed();  // tells the screen

private:
    Container& parent_;
    std::string name_;
    Place place_;
    char accessKey_;
    bool visible_ = true;
    bool enabled_ = true;
};

// A control that shows a text of the program.
class Captioned : public Control {
public:
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);

protected:
    Captioned(Container& parent, std::string_view name, const Place& place, std::string_view caption = {})
        : Control(parent, name, place), caption_(caption) {}

private:
    std::string caption_;
};

// Whether a control is of that class, as in is<TextBox>(control).
template <class Kind>
bool is(const Control& control) {
    return dynamic_cast<const Kind*>(&control) != nullptr;
}

// Those of the controls that are of that class, in the same order.
template <class Kind>
std::vector<Kind*> only(const std::vector<Control*>& controls) {
    std::vector<Kind*> found;
    for (Control* control : controls) {
        if (auto* one = dynamic_cast<Kind*>(control)) found.push_back(one);
    }
    return found;
}

}  // namespace vrix
