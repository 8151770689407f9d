#include "forms/control.h"

#include "forms/form.h"

namespace vrix {

namespace {

struct Span {
    int start;
    int length;
};

Span resolve(int start, int length, int room) {
    if (start < 0) start += room;
    return {start, length > 0 ? length : room + length - start};
}

}  // namespace

Bounds resolve(const Place& place, const Bounds& container) {
    const Span across = resolve(place.left, place.width, container.width);
    const Span down = resolve(place.top, place.height, container.height);
    return {container.left + across.start, container.top + down.start, across.length, down.length};
}

Control::Control(Container& parent, std::string_view name, const Place& place, char accessKey)
    : parent_(parent), name_(name), place_(place), accessKey_(accessKey) {
    parent.children_.push_back(this);
}

void Control::setLeft(int left) {
    place_.width = bounds().width;
    place_.left = left;
    changed();
}

void Control::setVisible(bool visible) {
    visible_ = visible;
    changed();
}

void Control::setEnabled(bool enabled) {
    enabled_ = enabled;
    changed();
}

void Control::takeFocus() { form().screen().focusWanted(*this); }

void Control::changed() { form().screen().controlChanged(*this); }

void Captioned::setCaption(const std::string& caption) {
    caption_ = caption;
    changed();
}

}  // namespace vrix
