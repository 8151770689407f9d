#pragma once

#include "forms/buttons.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/inputs.h"
#include "forms/label.h"
#include "forms/pictures.h"
#include "shell/toolkit.h"

namespace vrix {

inline constexpr Size pageSize{640, 480};
inline constexpr const char* createTask = "Create A Product Wizard";
inline constexpr const char* editTask = "Edit A Product";
inline constexpr const char* deleteTask = "Delete An Existing Product";
inline constexpr const char* wordDocuments = "Word Documents (*.doc)|*.doc";  // for a file dialog

// What all pages share: the title band, the frame for the page's own controls, and the three buttons. A page is left
// and entered by its actions alone; it keeps its content while it is hidden.
//
// Pages that edit one part of a Product are a group. The first of them owns the group's flag, `Edit`: the group is at
// work on an existing Product. The functions below take that flag.
class Page : public Form {
public:
    Picture TitleImg{*this, "TitleImg", {-72, 12, 48, 48}, Art::logo};
    Label Label1;  // the task
    Label Label2;  // the page
    Frame Frame2{*this, "Frame2", {24, 88, -24, -72}};
    ImageButton BackBtn{*this, "BackBtn", {-312, -44, 88, 28}, "< Back", 'B'};
    ImageButton NextBtn{*this, "NextBtn", {-218, -44, 88, 28}, "Next >", 'N'};
    ImageButton ExitBtn{*this, "ExitBtn", {-112, -44, 88, 28}, "Exit", 'X'};
    ButtonLabel& BackBtnLbl = BackBtn.label;
    ButtonLabel& NextBtnLbl = NextBtn.label;
    ButtonLabel& ExitBtnLbl = ExitBtn.label;

    // Closing a page by its window frame is its Exit.
    void closed() override { ExitBtn.action(); }

protected:
    Page(Toolkit& owner, std::string_view name, std::string_view heading, std::string_view task = createTask);

    // The caption of the task: editing a Product or creating one.
    void showTask(bool edit);
    // The same on a page that ends its group, where Next is Finish when editing.
    void showTaskOfLastPage(bool edit);

    void goTo(Form& next) { leaveFor(*this, next); }
    // Goes on to a page and calls its start routine.
    template <class NextPage, class Init>
    void goForward(NextPage& next, Init init) {
        goTo(next);
        (next.*init)();
    }
    void goToHub();
    void goToMain();
    // Leaves an edited group for the hub and ends its edit mode.
    void endEdit(bool& edit);
    // Back of the first page of a group: to the hub when editing, to the page before otherwise.
    void backInGroup(bool& edit, Form& previous);
    // Exit of every page of a group: to the hub when editing, to the main screen otherwise.
    void exitGroup(bool& edit);

    // Shows a message with one OK button.
    void tell(const std::string& title, const std::string& text);
    // Lets the user choose a file. The box takes the dialog's file name whatever the user did there.
    static void browse(CommonDialog& dialog, TextBox& box);

    Toolkit& toolkit;
};

}  // namespace vrix
