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
}

void Page::showTask(bool edit) { Label1.setCaption(edit ? editTask : createTask); }

void Page::showTaskOfLastPage(bool edit) {
    showTask(edit);
    NextBtnLbl.setCaption(edit ? "Finish" : "Next >");
}

void Page::goToHub() { goTo(vrix::form(toolkit, "Edit2")); }

void Page::goToMain() { goTo(vrix::form(toolkit, "ToolkitMain")); }

void Page::endEdit(bool& edit) {
    goToHub();
    edit = false;
}

void Page::backInGroup(bool& edit, Form& previous) {
    if (edit) {
        endEdit(edit);
    } else {
        goTo(previous);
    }
}

void Page::exitGroup(bool& edit) { backInGroup(edit, vrix::form(toolkit, "ToolkitMain")); }

void Page::tell(const std::string& title, const std::string& text) { screen().ask(text, title, Buttons::ok); }

void Page::browse(CommonDialog& dialog, TextBox& box) {
    if (dialog.ShowOpen()) box.setText(dialog.FileName);
}

}  // namespace vrix
