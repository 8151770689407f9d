#pragma once

#include <functional>

#include "forms/control.h"

namespace vrix {

// The caption on an image button. A press on it presses the button. Moves over it differ from those over the picture.
class ButtonLabel final : public Captioned {
public:
    ButtonLabel(Container& parent, std::string_view name, const Place& place, std::string_view caption)
        : Captioned(parent, name, place, caption) {}
};

// A button that the program draws itself. It shows one face at a time and has one action. A press captures the mouse,
// so the release runs the action wherever the pointer is. With the disabled face it ignores the mouse.
class ImageButton final : public Control {
public:
    enum class Face { normal, hover, pressed, disabled };

    // Makes the button and its label. The label is named like the button, with "Lbl" behind it.
    ImageButton(Container& parent, std::string_view name, const Place& place, std::string_view caption,
                char accessKey = 0);

    ButtonLabel label;
    std::function<void()> action;
    std::string tip;                       // the tooltip: what the caption does not say
    const Control* counterpart = nullptr;  // what takes the focus when this button has it and is disabled

    Face face() const { return face_; }
    void setDisabled(bool disabled) { show(disabled ? Face::disabled : Face::normal); }
    void reset();  // to normal, unless disabled

    // What the mouse does on the button's picture or on its label.
    void mouseDown();
    void mouseUp();
    void moveOverPicture(bool buttonHeld);
    void moveOverLabel();

private:
    bool live() const { return face_ != Face::disabled; }
    void hover();
    void show(Face face);
    Face face_ = Face::normal;
};

}  // namespace vrix
