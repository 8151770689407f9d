#include "shell/page.h"

#include "forms/event.h"

namespace vrix {

Page::Page(Toolkit& owner, std::string_view name, std::string_view heading, std::string_view task)
    : Form(owner.platform.screen, name, programTitle, pageSize),
      Label1(*this, "Label1", {24, 12, -96, 26}, task, Look::heading),
      Label2(*this, "Label2", {24, 40, -96, 20}, heading, Look::subheading),
      toolkit(owner) {
    defaultButton = &NextBtn;
    content = &Frame2;
    ExitBtn.action = [this] { exitGroup(); };
}

void Page::showTask() { Label1.setCaption(editing() ? editTask : createTask); }

void Page::showTaskOfLastPage() {
    showTask();
    NextBtnLbl.setCaption(editing() ? "Finish" : "Next >");
}

void Page::goForward(Page& next) {
    goTo(next);
    next.initThis();
}

void Page::goToHub() { goTo(vrix::form(toolkit, "Edit2")); }

void Page::goToMain() { goTo(vrix::form(toolkit, "ToolkitMain")); }

void Page::endEdit() {
    goToHub();
    group().Edit = false;
}

void Page::backInGroup(Form& previous) {
    if (editing()) {
        endEdit();
    } else {
        goTo(previous);
    }
}

void Page::exitGroup() { backInGroup(vrix::form(toolkit, "ToolkitMain")); }

void Page::tell(const std::string& title, const std::string& text) { screen().ask(text, title, Buttons::ok); }

void Page::browse(CommonDialog& dialog, TextBox& box) {
    if (dialog.ShowOpen()) box.setText(dialog.FileName);
}

}  // namespace vrix
