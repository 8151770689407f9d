#include "pages/wizard/create17.h"

#include "pages/finish/create18.h"
#include "pages/start/toolkit_main.h"
#include "pages/wizard/field_options_page.h"
#include "pages/wizard/fields_page.h"
#include "pages/wizard/product_options.h"

namespace vrix {

Create17::Create17(Toolkit& owner) : Page(owner, "Create17", "Document Control") {
    Browse1Btn.action = [this] { browse1This17(); };
    Browse2Btn.action = [this] { browse2This17(); };
    NextBtn.action = [this] { nextThis17(); };
    BackBtn.action = [this] { backInGroup(pageBefore()); };
    ExitBtn.action = [this] { exitThis17(); };
}

void Create17::initThis() {
    showTaskOfLastPage();
    if (Edit) {
        toolkit.options.load({&TemplatePath, &DefaultOutputFile, &AllowChangeCourseName, &ShowCourseName});
    } else {
        TemplatePath.clear();
        DefaultOutputFile.clear();
        AllowChangeCourseName.setValue(1);
        ShowCourseName.setValue(1);
    }
}

void Create17::browse1This17() {
    CommonDialog1.DialogTitle = "Browse For Product Template";
    CommonDialog1.Filter = "Word Templates (*.dot)|*.dot";
    browse(CommonDialog1, TemplatePath);
}

void Create17::browse2This17() {
    CommonDialog1.Filter = wordDocuments;
    CommonDialog1.DialogTitle = "Select Default Output Document";
    browse(CommonDialog1, DefaultOutputFile);
}

void Create17::nextThis17() {
    if (Edit) {
        toolkit.options.rewriteAll({&TemplatePath, &DefaultOutputFile, &AllowChangeCourseName, &ShowCourseName});
        endEdit();
    } else {
        goForward(toolkit.create18);
    }
}

// In the chain Create19 stands before this page, but Back passes over it.
Form& Create17::pageBefore() const {
    if (anyFieldHasPath(toolkit)) return toolkit.create16;
    return toolkit.create13;
}

// When creating, this hides Create16 and not this page, which stays on the screen beside the main one.
void Create17::exitThis17() {
    if (Edit) {
        endEdit();
    } else {
        leaveFor(toolkit.create16, toolkit.toolkitMain);
    }
}

}  // namespace vrix
