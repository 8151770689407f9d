#include "forms/form.h"

#include <algorithm>

#include "forms/buttons.h"
#include "forms/frame.h"

namespace vrix {

namespace {

void collect(const Container& container, std::vector<Control*>& controls) {
    for (Control* child : container.children()) {
        controls.push_back(child);
        if (const auto* frame = dynamic_cast<const Frame*>(child)) collect(*frame, controls);
    }
}

}  // namespace

Form::Form(Screen& screen, std::string_view name, std::string_view caption, const Size& size, Border border)
    : screen_(screen), name_(name), caption_(caption), size_(size), border_(border) {}

void Form::show() {
    if (!loaded_) {
        loaded_ = true;
        const Size area = screen_.screenSize();
        left_ = area.width / 2 - size_.width / 2;
        top_ = area.height / 2 - size_.height / 2;
        load();
    }
    visible_ = true;
    screen_.formChanged(*this);
}

void Form::hide() {
    visible_ = false;
    screen_.formChanged(*this);
}

void Form::setEnabled(bool enabled) {
    enabled_ = enabled;
    screen_.formChanged(*this);
}

std::vector<Control*> Form::controls() const {
    std::vector<Control*> all;
    collect(*this, all);
    return all;
}

Control* Form::find(std::string_view name) const {
    const auto all = controls();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Control* c) { return c->name() == name; });
    return found == all.end() ? nullptr : *found;
}

void Form::resetButtons() {
    for (ImageButton* button : only<ImageButton>(controls())) button->reset();
}

void leaveFor(Form& from, Form& to) {
    from.setEnabled(false);
    from.hide();
    to.show();
    to.setEnabled(true);
}

}  // namespace vrix
