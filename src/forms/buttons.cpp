#include "forms/buttons.h"

#include "forms/form.h"

namespace vrix {

ImageButton::ImageButton(Container& parent, std::string_view name, const Place& place, std::string_view caption,
                         char accessKey)
    : Control(parent, name, place, accessKey), label(parent, std::string(name) + "Lbl", place, caption) {}

void ImageButton::reset() {
    if (live()) show(Face::normal);
}

void ImageButton::mouseDown() {
    if (live()) show(Face::pressed);
}

void ImageButton::mouseUp() {
    if (!live()) return;
    show(Face::hover);
    if (action) action();
}

void ImageButton::moveOverPicture(bool buttonHeld) {
    if (live() && !buttonHeld) hover();
}

void ImageButton::moveOverLabel() {
    if (face_ == Face::normal) hover();
}

void ImageButton::hover() {
    form().resetButtons();
    show(Face::hover);
}

void ImageButton::show(Face face) {
    if (face == face_) return;
    face_ = face;
    changed();
}

}  // namespace vrix
