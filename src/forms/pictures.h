#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace vrix {

// What a picture shows.
enum class Art { logo, emblem, create, edit, remove };

// A picture that never changes. A click on it may start something.
class Picture final : public Control {
public:
    Picture(Container& parent, std::string_view name, const Place& place, Art art)
        : Control(parent, name, place), art_(art) {}
    Art art() const { return art_; }
    std::function<void()> onClick;

private:
    Art art_;
};

// The picture of a task on the main screen, pressed or not. A press captures the mouse. The release tells whether the
// pointer is still inside.
class TaskPicture final : public Control {
public:
    // `caption` is what the task is called for those who do not see the picture.
    TaskPicture(Container& parent, std::string_view name, const Place& place, Art art, std::string_view caption,
                char accessKey = 0)
        : Control(parent, name, place, accessKey), art_(art), caption_(caption) {}
    Art art() const { return art_; }
    const std::string& caption() const { return caption_; }

    std::function<void(bool inside)> onRelease;

    bool pressed() const { return pressed_; }
    void setPressed(bool pressed) {
        pressed_ = pressed;
        changed();
    }
    void mouseDown() { setPressed(true); }
    // `x` and `y` are in 1/96 inch from the picture's corner. All edges count as outside.
    void mouseUp(double x, double y) {
        const Bounds area = bounds();
        if (onRelease) onRelease(x > 0 && x < area.width && y > 0 && y < area.height);
    }

private:
    Art art_;
    std::string caption_;
    bool pressed_ = false;
};

}  // namespace vrix
