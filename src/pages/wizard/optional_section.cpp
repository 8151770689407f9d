#include "pages/wizard/optional_section.h"

#include "pages/topics/create8.h"
#include "pages/wizard/create4.h"
#include "pages/wizard/product_options.h"

namespace vrix {

OptionalSection::OptionalSection(Toolkit& owner, const SectionNames& names)
    : Page(owner, names.page, names.title + " Options"),
      Label3(Frame2, "Label3", {0, 0, 0, 18}, names.title + " File:"),
      path(Frame2, names.path, {0, 22, -102, 24}),
      mayDisable(Frame2, names.mayDisable, {0, 72, 0, 22}, "Allow User To Disable The " + names.title),
      display(Frame2, names.display, {0, 104, 0, 22}, "Display " + names.title + " Option"),
      byDefault(Frame2, names.byDefault, {0, 136, 0, 22}, names.title + " Selected By Default") {
    path.onChange = [this] { pathChanged(); };
    Browse1Btn.action = [this] { browse(CommonDialog1, path); };
}

// When editing, only the hub's call starts the page. The first load of a path sets all switches; a second one would
// find the path unchanged and show the stored switches.
void OptionalSection::load() {
    if (!Edit) initThis();
}

void OptionalSection::initThis() {
    showTaskOfLastPage();
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

void OptionalSection::goOn(Page& next) {
    if (Edit) {
        toolkit.options.rewriteEach({&mayDisable, &display, &byDefault, &path});
        endEdit();
    } else {
        goForward(next);
    }
}

Create5::Create5(Toolkit& owner)
    : OptionalSection(owner, {.page = "Create5",
                              .title = "Content Summary",
                              .path = "CourseBriefPath",
                              .mayDisable = "AllowNoCourseBriefing",
                              .display = "ShowCourseBriefing",
                              .byDefault = "DefaultCourseBrief"}) {
    NextBtn.action = [this] { goOn(toolkit.create6); };
    BackBtn.action = [this] { backInGroup(toolkit.create4); };
}

Create6::Create6(Toolkit& owner)
    : OptionalSection(owner, {.page = "Create6",
                              .title = "Table of Contents",
                              .path = "TOCPath",
                              .mayDisable = "AllowNoTOC",
                              .display = "ShowTOC",
                              .byDefault = "DefaultTOC"}) {
    NextBtn.action = [this] { goOn(toolkit.create7); };
    BackBtn.action = [this] { backInGroup(toolkit.create5); };
}

Create7::Create7(Toolkit& owner)
    : OptionalSection(owner, {.page = "Create7",
                              .title = "Conclusion",
                              .path = "ConclusionPath",
                              .mayDisable = "AllowNoConclusion",
                              .display = "ShowConclusion",
                              .byDefault = "DefaultConclusion"}) {
    NextBtn.action = [this] { goOn(toolkit.create8); };
    BackBtn.action = [this] { backInGroup(toolkit.create6); };
}

}  // namespace vrix
