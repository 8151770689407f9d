#include "pages/wizard/product_options.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

#include "forms/form.h"
#include "store/cregistry_functions.h"
#include "store/option_table.h"
#include "store/selected_product.h"

namespace vrix {

namespace {

// An option's control is called as its value, but for these and for the user defined fields.
constexpr std::array otherNames{
    std::pair{"AllowNoContentSummary", "AllowNoCourseBriefing"}, std::pair{"ContentSummaryPath", "CourseBriefPath"},
    std::pair{"DefaultContentSummary", "DefaultCourseBrief"},    std::pair{"DefaultSmartFields", "SmartFieldsDefault"},
    std::pair{"ShowContentSummary", "ShowCourseBriefing"},
};

std::string controlName(const std::string& option) {
    constexpr std::string_view field = "UserDefined";
    if (option.starts_with(field)) return "UserDef" + option.substr(field.size());
    const auto* const other =
        std::find_if(otherNames.begin(), otherNames.end(), [&](const auto& names) { return names.first == option; });
    return other == otherNames.end() ? option : other->second;
}

}  // namespace

ProductOptions::ProductOptions(const Toolkit& toolkit) : toolkit_(toolkit) {
    std::map<std::string, Control*> controls;
    for (const Form* form : toolkit.forms) {
        for (Control* control : form->controls()) controls.emplace(control->name(), control);
    }
    for (const OptionRow& row : optionTable()) {
        options_.push_back({row.name, controls.at(controlName(row.name)), row.kind == OptionKind::path});
    }
}

const Option& ProductOptions::of(const Control& control) const {
    return *std::find_if(options_.begin(), options_.end(), [&](const Option& o) { return o.control == &control; });
}

std::string ProductOptions::section() const { return toolkit_.selectedProduct.ProductRegKey + "\\Options"; }

void ProductOptions::load(const std::vector<Control*>& controls) const {
    for (Control* control : controls) {
        control->restore(toolkit_.settings.GetSetting(application, section(), of(*control).name, ""));
    }
}

void ProductOptions::start(const std::vector<Control*>& controls, bool editing) const {
    if (editing) {
        load(controls);
    } else {
        for (Control* control : controls) control->clear();
    }
}

void ProductOptions::remove(const std::vector<Control*>& controls) const {
    for (const Control* control : controls) {
        toolkit_.settings.DeleteSetting(application, section(), of(*control).name);
    }
}

void ProductOptions::save(const std::vector<Control*>& controls) const {
    for (const Control* control : controls) {
        toolkit_.settings.SaveSetting(application, section(), of(*control).name, control->stored());
    }
}

void ProductOptions::rewriteEach(const std::vector<Control*>& controls) const {
    for (Control* control : controls) rewriteAll({control});
}

void ProductOptions::rewriteAll(const std::vector<Control*>& controls) const {
    remove(controls);
    save(controls);
}

}  // namespace vrix
