#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/place.h"

namespace vrix {

class Control;
class Form;

// What can hold controls: a form, or a frame on it.
class Container {
public:
    Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    virtual Form& form() = 0;
    virtual Bounds bounds() const = 0;
    const std::vector<Control*>& children() const { return children_; }

protected:
    ~Container() = default;

private:
    friend class Control;
    std::vector<Control*> children_;  // in the order of declaration, which is reading and tab order
};

enum class ControlKind {
    label,
    picture,
    taskPicture,
    frame,
    textBox,
    checkBox,
    optionButton,
    comboBox,
    markList,
    imageButton,
    buttonLabel,
};

// One control of a form. Controls are fields of their form and live as long as it does.
class Control {
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual ControlKind kind() const = 0;
    const std::string& name() const { return name_; }
    Form& form() const { return parent_.form(); }
    const Container& parent() const { return parent_; }
    Bounds bounds() const { return resolve(place_, parent_.bounds()); }

    void setLeft(int left);  // in its container, in 1/96 inch; the width stays

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    // The control's content as the store keeps it: text as it stands, a check box "0" or "1", a combo box its
    // current row in decimal. Empty for controls that take no input.
    virtual std::string stored() const { return {}; }
    // Sets the content from its stored form. Failure 13 or 6 for text that is no 16-bit number where one is needed,
    // 380 for a number that the control refuses.
    virtual void restore(const std::string& text);
    // Empties the content: no text, not checked, no rows.
    virtual void clear() {}

protected:
    Control(Container& parent, std::string_view name, const Place& place);
    void changed();  // tells the screen

private:
    Container& parent_;
    std::string name_;
    Place place_;
    bool visible_ = true;
    bool enabled_ = true;
};

}  // namespace vrix
