#pragma once

#include "forms/control.h"

namespace vrix {

// A part of a form that holds controls. It draws nothing of its own.
class Frame final : public Control, public Container {
public:
    Frame(Container& parent, std::string_view name, const Place& place)
        : Control(parent, name, place), parentForm_(parent.form()) {}
    Form& form() override { return parentForm_; }
    Bounds bounds() const override { return Control::bounds(); }

private:
    Form& parentForm_;
};

}  // namespace vrix
