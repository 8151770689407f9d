#include "pages/wizard/optional_section.h"

#include "pages/topics/create8.h"
#include "pages/wizard/create4.h"
#include "pages/wizard/product_options.h"

namespace vrix {

OptionalSection::OptionalSection(Toolkit& owner, std::string_view name, const std::string& title,
                                 const std::string& stem, const std::string& switchStem)
    : Page(owner, name, title + " Options"),
      Label3(Frame2, "Label3", {0, 0, 0, 18}, title + " File:"),
      path(Frame2, stem + "Path", {0, 22, -102, 24}),
      mayDisable(Frame2, "AllowNo" + switchStem, {0, 72, 0, 22}, "Allow User To Disable The " + title),
      display(Frame2, "Show" + switchStem, {0, 104, 0, 22}, "Display " + title + " Option"),
      byDefault(Frame2, "Default" + stem, {0, 136, 0, 22}, title + " Selected By Default") {
    // A file turns the whole section on, at each change of its path.
    path.onChange = [this] {
        if (path.text().empty()) return;
        for (CheckBox* box : {&mayDisable, &display, &byDefault}) box->setValue(1);
    };
    Browse1Btn.action = [this] { browse(CommonDialog1, path); };
}

// When editing, only the hub's call starts the page. The first load of a path sets all switches; a second one would
// find the path unchanged and show the stored switches.
void OptionalSection::load() {
    if (!Edit) initThis();
}

void OptionalSection::initThis() {
    showTaskOfLastPage();
    toolkit.options.start({&mayDisable, &display, &byDefault, &path}, Edit);
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
    : OptionalSection(owner, "Create5", "Content Summary", "CourseBrief", "CourseBriefing") {
    NextBtn.action = [this] { goOn(toolkit.create6); };
    BackBtn.action = [this] { backInGroup(toolkit.create4); };
}

Create6::Create6(Toolkit& owner) : OptionalSection(owner, "Create6", "Table of Contents", "TOC", "TOC") {
    NextBtn.action = [this] { goOn(toolkit.create7); };
    BackBtn.action = [this] { backInGroup(toolkit.create5); };
}

Create7::Create7(Toolkit& owner) : OptionalSection(owner, "Create7", "Conclusion", "Conclusion", "Conclusion") {
    NextBtn.action = [this] { goOn(toolkit.create8); };
    BackBtn.action = [this] { backInGroup(toolkit.create6); };
}

}  // namespace vrix
