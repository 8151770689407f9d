#include "pages/start/toolkit_main.h"

#include <array>

#include "forms/event.h"
#include "pages/edit/delete1.h"
#include "pages/edit/edit1.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/wizard/create1.h"
#include "store/product_reg.h"

namespace vrix {

namespace {

// The input controls of a page. A name that ends in "#" stands for its numbers from `first` to `last`.
struct Inputs {
    std::string_view page;
    std::vector<std::string_view> names;
    int first = 1;
    int last = 10;
};

const std::array inputsOfAllPages{
    Inputs{"Create2", {"ProductName", "ProductKey", "DefaultCourseName"}},
    Inputs{"Create3", {"CoverPage#", "CoverPage#Name"}, 1, 3},
    Inputs{"Create4", {"DefaultCover", "AllowNoCoverPage", "AllowUseAlternateCoverPage", "DefaultCoverPage"}},
    Inputs{"Create5", {"CourseBriefPath", "AllowNoCourseBriefing", "ShowCourseBriefing", "DefaultCourseBrief"}},
    Inputs{"Create6", {"TOCPath", "AllowNoTOC", "DefaultTOC", "ShowTOC"}},
    Inputs{"Create7", {"ConclusionPath", "AllowNoConclusion", "DefaultConclusion", "ShowConclusion"}},
    Inputs{"Create8", {"TopicName", "TopicPath", "Topics"}},
    Inputs{"Create9", {"DependsList", "Topics"}},
    Inputs{"Create10", {"UserDef#", "UserDef#Path", "UserDef#Pos"}, 1, 3},
    Inputs{"Create11", {"UserDef#", "UserDef#Path", "UserDef#Pos"}, 4, 5},
    Inputs{"Create12", {"UserDef#", "UserDef#Path", "UserDef#Pos"}, 6, 8},
    Inputs{"Create13", {"UserDef#", "UserDef#Path", "UserDef#Pos"}, 9, 10},
    Inputs{"Create14", {"AllowNoUserDefined#"}},
    Inputs{"Create15", {"DefaultUserDef#"}},
    Inputs{"Create16", {"ShowUserDefined#"}},
    Inputs{"Create17", {"AllowChangeCourseName", "ShowCourseName", "DefaultOutputFile", "TemplatePath"}},
    Inputs{"Create18", {"SettingsPath"}},
    Inputs{"Edit1", {"ProductList"}},
    Inputs{"Delete1", {"ProductList"}},
};

void clearNumbered(const Toolkit& toolkit, const Inputs& inputs, std::string_view pattern) {
    const auto mark = pattern.find('#');
    for (int n = inputs.first; n <= inputs.last; ++n) {
        std::string name(pattern);
        control(toolkit, inputs.page, name.replace(mark, 1, std::to_string(n))).clear();
    }
}

void clear(const Toolkit& toolkit, const Inputs& inputs) {
    for (const std::string_view name : inputs.names) {
        if (name.find('#') != std::string_view::npos) {
            clearNumbered(toolkit, inputs, name);
        } else {
            control(toolkit, inputs.page, name).clear();
        }
    }
}

}  // namespace

ToolkitMain::ToolkitMain(Toolkit& toolkit)
    : Form(toolkit.platform.screen, "ToolkitMain", programTitle, {520, 480}), toolkit_(toolkit) {
    CreateImg.onRelease = [this](bool inside) { startCreate(inside); };
    EditImg.onRelease = [this](bool inside) { startEdit(inside); };
    DeleteImg.onRelease = [this](bool inside) { startDelete(inside); };
    Image2.onClick = [this] { DeleteImg.setPressed(true); };
    ExitBtn.action = [this] { screen().quit(); };
}

void ToolkitMain::startCreate(bool inside) {
    if (inside) leaveFor(*this, toolkit_.create1);
    CreateImg.setPressed(false);
}

void ToolkitMain::startEdit(bool inside) {
    if (inside) {
        leaveFor(*this, toolkit_.edit1);
        toolkit_.edit1.initEdit1();
    }
    returnIfNoProducts(EditImg, toolkit_.edit1, "Edit");
}

void ToolkitMain::startDelete(bool inside) {
    if (inside) {
        leaveFor(*this, toolkit_.delete1);
        toolkit_.delete1.initDelete1();
    }
    returnIfNoProducts(DeleteImg, toolkit_.delete1, "Delete");
}

void ToolkitMain::returnIfNoProducts(TaskPicture& picture, Form& page, const std::string& option) {
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

void ToolkitMain::InitEverything() {
    for (const Inputs& inputs : inputsOfAllPages) {
        clear(toolkit_, inputs);
        if (inputs.page == "Create8") {
            toolkit_.create8.TopicNames.becomeEmptyText();
            toolkit_.create8.TopicPaths.becomeEmptyText();
        }
        if (inputs.page == "Create9") toolkit_.create9.Depends.at(0).clear();
    }
}

}  // namespace vrix
