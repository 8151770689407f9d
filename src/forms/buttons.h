#pragma once

#include <functional>

#include "forms/control.h"

namespace vrix {

class ImageButton;

// The caption on an image button. It reacts to the mouse as the button's picture does, but for its moves.
class ButtonLabel final : public Control {
public:
    ButtonLabel(Container& parent, std::string_view name, const Place& place, std::string_view caption)
        : Control(parent, name, place), caption_(caption) {}
    ControlKind kind() const override { return ControlKind::buttonLabel; }
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);

private:
    std::string caption_;
};

// A hand-drawn button: exactly one face at a time, one action. A press captures the mouse, so a release anywhere runs
// the action. A disabled face reacts to nothing.
class ImageButton final : public Control {
public:
    enum class Face { normal, hover, pressed, disabled };

    // Makes the button and its label, which is named like the button with "Lbl" behind it.
    ImageButton(Container& parent, std::string_view name, const Place& place, std::string_view caption);
    ControlKind kind() const override { return ControlKind::imageButton; }

    ButtonLabel label;
    std::function<void()> action;

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
