#include "pages/wizard/product_options.h"

#include <algorithm>
#include <array>

#include "pages/wizard/fields_page.h"
#include "store/cregistry_functions.h"
#include "store/option_table.h"
#include "store/selected_product.h"

namespace vrix {

namespace {

// Options of one kind, and the page and control that hold them. The page of a user defined field depends on its number.
struct Row {
    std::string_view value;
    std::string_view page;
    std::string_view control;
};

constexpr std::string_view fieldPage{};

constexpr std::array rows{
    Row{"AllowChangeCourseName", "Create17", "AllowChangeCourseName"},
    Row{"AllowNoConclusion", "Create7", "AllowNoConclusion"},
    Row{"AllowNoContentSummary", "Create5", "AllowNoCourseBriefing"},
    Row{"AllowNoCoverPage", "Create4", "AllowNoCoverPage"},
    Row{"AllowNoTOC", "Create6", "AllowNoTOC"},
    Row{"AllowNoUserDefined#", "Create14", "AllowNoUserDefined#"},
    Row{"AllowUseAlternateCoverPage", "Create4", "AllowUseAlternateCoverPage"},
    Row{"ConclusionPath", "Create7", "ConclusionPath"},
    Row{"ContentSummaryPath", "Create5", "CourseBriefPath"},
    Row{"CoverPage#", "Create3", "CoverPage#"},
    Row{"CoverPage#Name", "Create3", "CoverPage#Name"},
    Row{"DefaultConclusion", "Create7", "DefaultConclusion"},
    Row{"DefaultContentSummary", "Create5", "DefaultCourseBrief"},
    Row{"DefaultCourseName", "Create2", "DefaultCourseName"},
    Row{"DefaultCover", "Create4", "DefaultCover"},
    Row{"DefaultCoverPage", "Create4", "DefaultCoverPage"},
    Row{"DefaultTOC", "Create6", "DefaultTOC"},
    Row{"DefaultUserDef#", "Create15", "DefaultUserDef#"},
    Row{"ShowConclusion", "Create7", "ShowConclusion"},
    Row{"ShowContentSummary", "Create5", "ShowCourseBriefing"},
    Row{"ShowCourseName", "Create17", "ShowCourseName"},
    Row{"ShowTOC", "Create6", "ShowTOC"},
    Row{"ShowUserDefined#", "Create16", "ShowUserDefined#"},
    Row{"TOCPath", "Create6", "TOCPath"},
    Row{"UserDefined#", fieldPage, "UserDef#"},
    Row{"UserDefined#Path", fieldPage, "UserDef#Path"},
    Row{"UserDefined#Pos", fieldPage, "UserDef#Pos"},
    Row{"DefaultOutputFile", "Create17", "DefaultOutputFile"},
    Row{"TemplatePath", "Create17", "TemplatePath"},
    Row{"DefaultSmartFields", "Create19", "SmartFieldsDefault"},
};

constexpr bool isValueOf(const Row& row, const OptionFamily& family) { return row.value == family.pattern; }
static_assert(std::equal(rows.begin(), rows.end(), optionFamilies.begin(), optionFamilies.end(), isValueOf));

}  // namespace

ProductOptions::ProductOptions(const Toolkit& toolkit) : toolkit_(toolkit) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& [pattern, kind, count] = optionFamilies[i];
        const bool isPath = kind == OptionKind::path;
        if (count == 0) {
            options_.push_back({std::string(pattern), &control(toolkit, rows[i].page, rows[i].control), isPath});
        }
        for (int n = 1; n <= count; ++n) {
            const std::string_view page = rows[i].page == fieldPage ? fieldsPage(toolkit, n).name() : rows[i].page;
            Control& member = control(toolkit, page, numbered(rows[i].control, n));
            options_.push_back({numbered(pattern, n), &member, isPath});
        }
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
