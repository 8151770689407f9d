#include "shell/toolkit.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "forms/form.h"

namespace vrix {

Form& form(const Toolkit& toolkit, std::string_view name) {
    const auto found =
        std::find_if(toolkit.forms.begin(), toolkit.forms.end(), [&](const Form* f) { return f->name() == name; });
    if (found == toolkit.forms.end()) throw std::logic_error("no form " + std::string(name));
    return **found;
}

Control& control(const Toolkit& toolkit, std::string_view formName, std::string_view name) {
    Control* found = form(toolkit, formName).find(name);
    if (found == nullptr) throw std::logic_error("no control " + std::string(name) + " on " + std::string(formName));
    return *found;
}

}  // namespace vrix
