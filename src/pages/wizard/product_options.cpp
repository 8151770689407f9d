#include "pages/wizard/product_options.h"

#include <algorithm>
#include <array>

#include "pages/wizard/fields_page.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

namespace {

// A row of the table: the name of a value, and the page and control that hold it. A row with a count stands for that
// many values, with the numbers from 1 in the place of "#". The page of a user defined field depends on its number.
struct Row {
    std::string_view value;
    std::string_view page;
    std::string_view control;
    int count = 0;
    bool isPath = false;
};

constexpr bool isPath = true;
constexpr std::string_view fieldPage{};

constexpr std::array rows{
    Row{"AllowChangeCourseName", "Create17", "AllowChangeCourseName"},
    Row{"AllowNoConclusion", "Create7", "AllowNoConclusion"},
    Row{"AllowNoContentSummary", "Create5", "AllowNoCourseBriefing"},
    Row{"AllowNoCoverPage", "Create4", "AllowNoCoverPage"},
    Row{"AllowNoTOC", "Create6", "AllowNoTOC"},
    Row{"AllowNoUserDefined#", "Create14", "AllowNoUserDefined#", 10},
    Row{"AllowUseAlternateCoverPage", "Create4", "AllowUseAlternateCoverPage"},
    Row{"ConclusionPath", "Create7", "ConclusionPath", 0, isPath},
    Row{"ContentSummaryPath", "Create5", "CourseBriefPath", 0, isPath},
    Row{"CoverPage#", "Create3", "CoverPage#", 3, isPath},
    Row{"CoverPage#Name", "Create3", "CoverPage#Name", 3},
    Row{"DefaultConclusion", "Create7", "DefaultConclusion"},
    Row{"DefaultContentSummary", "Create5", "DefaultCourseBrief"},
    Row{"DefaultCourseName", "Create2", "DefaultCourseName"},
    Row{"DefaultCover", "Create4", "DefaultCover"},
    Row{"DefaultCoverPage", "Create4", "DefaultCoverPage"},
    Row{"DefaultTOC", "Create6", "DefaultTOC"},
    Row{"DefaultUserDef#", "Create15", "DefaultUserDef#", 10},
    Row{"ShowConclusion", "Create7", "ShowConclusion"},
    Row{"ShowContentSummary", "Create5", "ShowCourseBriefing"},
    Row{"ShowCourseName", "Create17", "ShowCourseName"},
    Row{"ShowTOC", "Create6", "ShowTOC"},
    Row{"ShowUserDefined#", "Create16", "ShowUserDefined#", 10},
    Row{"TOCPath", "Create6", "TOCPath", 0, isPath},
    Row{"UserDefined#", fieldPage, "UserDef#", 10},
    Row{"UserDefined#Path", fieldPage, "UserDef#Path", 10, isPath},
    Row{"UserDefined#Pos", fieldPage, "UserDef#Pos", 10},
    Row{"DefaultOutputFile", "Create17", "DefaultOutputFile", 0, isPath},
    Row{"TemplatePath", "Create17", "TemplatePath", 0, isPath},
    Row{"DefaultSmartFields", "Create19", "SmartFieldsDefault"},
};

constexpr int optionCount(const auto& table) {
    int count = 0;
    for (const Row& row : table) count += row.count == 0 ? 1 : row.count;
    return count;
}
static_assert(optionCount(rows) == 88);

std::string numbered(std::string_view pattern, int number) {
    std::string name(pattern);
    return name.replace(name.find('#'), 1, std::to_string(number));
}

}  // namespace

ProductOptions::ProductOptions(const Toolkit& toolkit) : toolkit_(toolkit) {
    for (const Row& row : rows) {
        if (row.count == 0) {
            options_.push_back({std::string(row.value), &control(toolkit, row.page, row.control), row.isPath});
        }
        for (int n = 1; n <= row.count; ++n) {
            const std::string_view page = row.page == fieldPage ? fieldsPage(toolkit, n).name() : row.page;
            Control& member = control(toolkit, page, numbered(row.control, n));
            options_.push_back({numbered(row.value, n), &member, row.isPath});
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
