#pragma once

#include "forms/control.h"

namespace vrix {

// The style of a label's text.
enum class Look {
    body,        // the message font, broken into lines
    heading,     // the name of the task, in the title band
    subheading,  // the name of the page, in the title band
    section,     // the head of a group of inputs, with a line behind it
    product,     // the program's name on the splash and the main screen
};

// Fixed text, shown as typed: "&" is an ordinary character.
class Label final : public Captioned {
public:
    Label(Container& parent, std::string_view name, const Place& place, std::string_view caption,
          Look look = Look::body)
        : Captioned(parent, name, place, caption), look_(look) {}
    Look look() const { return look_; }
    // The picture whose caption this is. A press on the label presses it.
    const Control* presses = nullptr;

private:
    Look look_;
};

}  // namespace vrix
