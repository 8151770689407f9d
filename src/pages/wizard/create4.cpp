#include "pages/wizard/create4.h"

#include "pages/wizard/create3.h"
#include "pages/wizard/optional_section.h"
#include "pages/wizard/product_options.h"

namespace vrix {

Create4::Create4(Toolkit& owner) : Page(owner, "Create4", "Cover Page Options") {
    NextBtn.action = [this] { nextThis4(); };
    BackBtn.action = [this] { goTo(toolkit.create3); };
}

Page& Create4::group() { return toolkit.create3; }

void Create4::initThis() {
    const Create3& names = toolkit.create3;
    showTaskOfLastPage();
    if (editing()) {
        toolkit.options.load({&AllowNoCoverPage, &AllowUseAlternateCoverPage, &DefaultCover});
    } else {
        AllowUseAlternateCoverPage.setValue(names.CoverPage2Name.text().empty() ? 0 : 1);
        AllowNoCoverPage.setValue(1);
        DefaultCover.setValue(1);
    }
    // The stored choice is not read: the list always starts at the first name.
    DefaultCoverPage.clear();
    for (const TextBox* name : {&names.CoverPage1Name, &names.CoverPage2Name, &names.CoverPage3Name}) {
        if (!name->text().empty()) DefaultCoverPage.addItem(name->text());
    }
    DefaultCoverPage.setListIndex(0);
}

void Create4::nextThis4() {
    if (editing()) {
        toolkit.options.rewriteEach(toolkit.create3.boxes());
        toolkit.options.rewriteEach({&AllowNoCoverPage, &AllowUseAlternateCoverPage, &DefaultCover, &DefaultCoverPage});
        endEdit();
        return;
    }
    NextBtnLbl.setCaption("Next >");
    goForward(toolkit.create5);
}

}  // namespace vrix
