#include "pages/start/toolkit_main.h"

#include "forms/event.h"
#include "pages/edit/delete1.h"
#include "pages/edit/edit1.h"
#include "pages/smartfields/create19.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/wizard/create1.h"
#include "store/product_reg.h"

namespace vrix {

ToolkitMain::ToolkitMain(Toolkit& toolkit)
    : Form(toolkit.platform.screen, "ToolkitMain", programTitle, {520, 480}), toolkit_(toolkit) {
    CreateImg.onRelease = [this](bool inside) {
        if (inside) leaveFor(*this, toolkit_.create1);
        CreateImg.setPressed(false);
    };
    EditImg.onRelease = [this](bool inside) { startWithProducts(inside, EditImg, toolkit_.edit1, "Edit"); };
    DeleteImg.onRelease = [this](bool inside) { startWithProducts(inside, DeleteImg, toolkit_.delete1, "Delete"); };
    Image2.onClick = [this] { DeleteImg.setPressed(true); };
    content = &Frame2;
    Label3.presses = &CreateImg;
    Label4.presses = &EditImg;
    Label5.presses = &DeleteImg;
    ExitBtn.action = [this] { screen().quit(); };
}

void ToolkitMain::startWithProducts(bool inside, TaskPicture& picture, Page& page, const std::string& option) {
    if (inside) {
        leaveFor(*this, page);
        page.initThis();
    }
    if (toolkit_.productReg.CountProducts == 0) {
        screen().ask(
            "Vrix Administrative Toolkit has been unable to detect any installed Products.\r\n\r\n"
            "Please create a Product with the Administrative Toolkit before you use the " +
                option + " option.",
            "No Products Detected!", Buttons::ok);
        leaveFor(page, *this);
    }
    picture.setPressed(false);
}

// Create19 keeps its SmartFields. Where Create9 was never opened, Depends has no element 0: with that failure 9 the
// pages from Create10 on are not cleared.
void ToolkitMain::InitEverything() {
    for (const Form* page : toolkit_.forms) {
        if (page == &toolkit_.create19) continue;
        for (Control* control : page->controls()) control->clear();
        if (page == &toolkit_.create8) {
            toolkit_.create8.TopicNames.becomeEmptyText();
            toolkit_.create8.TopicPaths.becomeEmptyText();
        }
        if (page == &toolkit_.create9) toolkit_.create9.Depends.at(0).clear();
    }
}

}  // namespace vrix
