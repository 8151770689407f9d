#include "pages/wizard/optional_section.h"

#include "pages/topics/create8.h"
#include "pages/wizard/create4.h"
#include "pages/wizard/product_options.h"

namespace vrix {

namespace {

constexpr SectionNames contentSummary{
    .page = "Create5",
    .heading = "Content Summary Options",
    .fileCaption = "Content Summary File:",
    .pathName = "CourseBriefPath",
    .mayDisableName = "AllowNoCourseBriefing",
    .mayDisableCaption = "Allow User To Disable The Content Summary",
    .displayName = "ShowCourseBriefing",
    .displayCaption = "Display Content Summary Option",
    .byDefaultName = "DefaultCourseBrief",
    .byDefaultCaption = "Content Summary Selected By Default",
};

constexpr SectionNames tableOfContents{
    .page = "Create6",
    .heading = "Table of Contents Options",
    .fileCaption = "Table of Contents File:",
    .pathName = "TOCPath",
    .mayDisableName = "AllowNoTOC",
    .mayDisableCaption = "Allow User To Disable The Table of Contents",
    .displayName = "ShowTOC",
    .displayCaption = "Display Table of Contents Option",
    .byDefaultName = "DefaultTOC",
    .byDefaultCaption = "Table of Contents Selected By Default",
};

constexpr SectionNames conclusion{
    .page = "Create7",
    .heading = "Conclusion Options",
    .fileCaption = "Conclusion File:",
    .pathName = "ConclusionPath",
    .mayDisableName = "AllowNoConclusion",
    .mayDisableCaption = "Allow User To Disable The Conclusion",
    .displayName = "ShowConclusion",
    .displayCaption = "Display Conclusion Option",
    .byDefaultName = "DefaultConclusion",
    .byDefaultCaption = "Conclusion Selected By Default",
};

}  // namespace

OptionalSection::OptionalSection(Toolkit& owner, const SectionNames& names)
    : Page(owner, names.page, "Create A Product Wizard", names.heading),
      Label3(Frame2, "Label3", {0, 0, 0, 18}, names.fileCaption),
      path(Frame2, names.pathName, {0, 22, -102, 24}),
      mayDisable(Frame2, names.mayDisableName, {0, 72, 0, 22}, names.mayDisableCaption),
      display(Frame2, names.displayName, {0, 104, 0, 22}, names.displayCaption),
      byDefault(Frame2, names.byDefaultName, {0, 136, 0, 22}, names.byDefaultCaption),
      CommonDialog1(owner.platform.fileDialog) {
    CommonDialog1.DialogTitle = "Browse For Course Briefing";
    CommonDialog1.Filter = "Word Documents (*.doc)|*.doc";
    CommonDialog1.DefaultExt = ".doc";
    path.onChange = [this] { pathChanged(); };
    Browse1Btn.action = [this] { browse(CommonDialog1, path); };
    NextBtn.action = [this] { nextThis(); };
    BackBtn.action = [this] { backThis(); };
    ExitBtn.action = [this] { exitGroup(Edit); };
}

// When editing, the hub's call is the only one: a second load would find the path unchanged and show the stored
// switches.
void OptionalSection::load() {
    if (!Edit) initThis();
}

void OptionalSection::initThis() {
    showTaskOfLastPage(Edit);
    if (Edit) {
        toolkit.options.load({&mayDisable, &display, &byDefault, &path});
    } else {
        for (Control* control : std::vector<Control*>{&mayDisable, &display, &byDefault, &path}) control->clear();
    }
}

// A file turns the whole section on, at each change of its path.
void OptionalSection::pathChanged() {
    if (path.text().empty()) return;
    for (CheckBox* box : {&mayDisable, &display, &byDefault}) box->setValue(1);
}

void OptionalSection::nextThis() {
    if (Edit) {
        toolkit.options.rewriteEach({&mayDisable, &display, &byDefault, &path});
        endEdit(Edit);
    } else {
        goToNext();
    }
}

void OptionalSection::backThis() {
    if (Edit) {
        endEdit(Edit);
    } else {
        goToPrevious();
    }
}

Create5::Create5(Toolkit& owner) : OptionalSection(owner, contentSummary) {}

void Create5::goToNext() {
    goTo(toolkit.create6);
    toolkit.create6.initThis();
}

void Create5::goToPrevious() { goTo(toolkit.create4); }

Create6::Create6(Toolkit& owner) : OptionalSection(owner, tableOfContents) {}

void Create6::goToNext() {
    goTo(toolkit.create7);
    toolkit.create7.initThis();
}

void Create6::goToPrevious() { goTo(toolkit.create5); }

Create7::Create7(Toolkit& owner) : OptionalSection(owner, conclusion) {}

void Create7::goToNext() {
    goTo(toolkit.create8);
    toolkit.create8.initThis8();
}

void Create7::goToPrevious() { goTo(toolkit.create6); }

}  // namespace vrix
