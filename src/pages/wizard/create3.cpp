#include "pages/wizard/create3.h"

#include "pages/wizard/create2.h"
#include "pages/wizard/create4.h"
#include "pages/wizard/product_options.h"

namespace vrix {

namespace {

bool sameName(const TextBox& one, const TextBox& other) { return !one.text().empty() && one.text() == other.text(); }

}  // namespace

Create3::Create3(Toolkit& owner) : Page(owner, "Create3", "Cover Page Options") {
    Browse1Btn.action = [this] { browse(CommonDialog1, CoverPage1); };
    Browse2Btn.action = [this] { browse(CommonDialog1, CoverPage2); };
    Browse3Btn.action = [this] { browse(CommonDialog1, CoverPage3); };
    NextBtn.action = [this] { nextThis3(); };
    BackBtn.action = [this] { backInGroup(toolkit.create2); };
}

std::vector<Control*> Create3::boxes() {
    return {&CoverPage1, &CoverPage2, &CoverPage3, &CoverPage1Name, &CoverPage2Name, &CoverPage3Name};
}

void Create3::initThis() {
    showTask();
    toolkit.options.start(boxes(), Edit);
}

bool Create3::namesRepeat() const {
    return sameName(CoverPage2Name, CoverPage3Name) || sameName(CoverPage1Name, CoverPage3Name) ||
           sameName(CoverPage1Name, CoverPage2Name);
}

bool Create3::nameMissing() const {
    const auto missing = [](const TextBox& path, const TextBox& name) {
        return !path.text().empty() && name.text().empty();
    };
    return missing(CoverPage1, CoverPage1Name) || missing(CoverPage2, CoverPage2Name) ||
           missing(CoverPage3, CoverPage3Name);
}

void Create3::nextThis3() {
    if (namesRepeat()) {
        tell("Invalid Cover Page Name",
             "Two or more of your cover pages have the same name. Please make each name unique.");
        return;
    }
    if (nameMissing()) {
        tell("Missing Cover Page Name", "You have not entered a name for one of your cover pages.");
        return;
    }
    if (CoverPage1.text().empty()) {
        tell("Missing Cover Page", "Please enter at least one cover page for your Product");
        return;
    }
    goForward(toolkit.create4);
}

}  // namespace vrix
