#include "forms/event.h"
#include "walk.h"

namespace vrix {
namespace {

constexpr const char* noProducts =
    "No Products Detected!: Vrix Administrative Toolkit has been unable to detect any installed Products.\r\n\r\n"
    "Please create a Product with the Administrative Toolkit before you use the ";

TEST(Shell, TheSplashOpensTheMainScreenOnce) {
    Walk walk;
    runEvent(walk.windows, [&] { walk.program.start(); });
    EXPECT_EQ(walk.front(), "SplashScreen");
    EXPECT_FALSE(walk.pages.toolkitMain.visible());
    EXPECT_EQ(walk.pages.splashScreen.left() * 1'000 + walk.pages.splashScreen.top(), 272'202);  // in 1024 by 768
    EXPECT_EQ(walk.pages.splashScreen.ImportantLbl.bounds().left, walk.pages.splashScreen.AcceptLbl.bounds().left);
    walk.windows.formLog.clear();
    walk.windows.passTime();
    walk.windows.passTime();
    EXPECT_EQ(walk.windows.formLog,
              (std::vector<std::string>{"SplashScreen disabled", "SplashScreen hidden", "ToolkitMain shown"}));
}

TEST(Shell, EditAndDeleteNeedAProduct) {
    Walk walk;
    walk.start();
    // A release outside, at the start of a run: no Product is known yet.
    walk.user.pressTask("EditImg", false);
    EXPECT_EQ(walk.message(), std::string(noProducts) + "Edit option.");
    EXPECT_EQ(walk.act("DeleteImg").message(), std::string(noProducts) + "Delete option.");
    EXPECT_EQ(walk.front(), "ToolkitMain");
    EXPECT_FALSE(walk.pages.delete1.visible());
    EXPECT_FALSE(walk.pages.toolkitMain.DeleteImg.pressed());

    walk.put("Toolkit\\Products", "Manual", "K");
    walk.user.pressTask("EditImg", false);
    EXPECT_EQ(walk.message(), std::string(noProducts) + "Edit option.");
    EXPECT_EQ(walk.act("EditImg").front(), "Edit1");
    walk.act("ExitBtn").user.pressTask("DeleteImg", false);
    EXPECT_EQ(walk.message(), "");
    EXPECT_EQ(walk.front(), "ToolkitMain");
    for (const char* exit : {"BackBtn", "ExitBtn"}) {
        EXPECT_EQ(walk.act("EditImg").act(exit).front(), "ToolkitMain");
        EXPECT_EQ(walk.act("DeleteImg").act(exit).front(), "ToolkitMain");
        EXPECT_EQ(walk.act("EditImg NextBtn").act(exit).front(), exit[0] == 'B' ? "Edit1" : "ToolkitMain");
        if (exit[0] == 'B') walk.act("ExitBtn");
    }
    EXPECT_EQ(walk.act("DeleteImg NextBtn ExitBtn").front(), "ToolkitMain");
}

TEST(Shell, OnlyAReleaseInsideTheTaskPictureStarts) {
    Walk walk;
    walk.start();
    auto& picture = walk.pages.toolkitMain.CreateImg;
    const Bounds area = picture.bounds();
    for (const auto& [x, y] :
         std::vector<std::pair<double, double>>{{0, 5}, {5, 0}, {area.width, 5}, {5, area.height}, {-3, 5}}) {
        runEvent(walk.windows, [&] { picture.mouseDown(); });
        EXPECT_TRUE(picture.pressed());
        runEvent(walk.windows, [&] { picture.mouseUp(x, y); });
        EXPECT_EQ(walk.front(), "ToolkitMain") << x << ' ' << y;
        EXPECT_FALSE(picture.pressed());
    }
    walk.user.click("Image2");
    EXPECT_TRUE(walk.pages.toolkitMain.DeleteImg.pressed());
    EXPECT_EQ(walk.act("CreateImg").front(), "Create1");
}

TEST(Shell, OnlyTheMainScreenEndsTheProgram) {
    for (const bool byFrame : {false, true}) {
        Walk walk("Create3");
        walk.user.close();
        EXPECT_EQ(walk.front(), "ToolkitMain");
        EXPECT_FALSE(walk.windows.ended);
        byFrame ? walk.user.close() : walk.user.press("ExitBtn");
        EXPECT_TRUE(walk.windows.ended);
        EXPECT_EQ(walk.tree(), "");
    }
}

TEST(Shell, InitEverythingClearsTheInputsOfAllPages) {
    Walk walk("Create18");
    walk.setOptions(0);
    walk.act("SettingsPath=x").pages.create19.SmartFieldsDefault.setValue(1);  // the one input that it does not clear
    walk.pages.toolkitMain.InitEverything();
    for (const Form* page : walk.pages.forms) {
        for (const Control* control : page->controls()) {
            const bool kept = control->name() == "SmartFieldsDefault";
            const auto* box = dynamic_cast<const CheckBox*>(control);
            const auto* list = dynamic_cast<const ComboBox*>(control);
            const bool isCleared = box ? box->value() == kept : list ? list->count() == 0 : control->stored().empty();
            EXPECT_TRUE(isCleared) << control->name();
        }
    }
    EXPECT_FALSE(walk.pages.create8.TopicNames.isTable() || walk.pages.create8.TopicPaths.isTable());
    EXPECT_EQ(walk.pages.create9.Depends.at(0), "");
    EXPECT_EQ(walk.user.at("Create18").press("ExitBtn").form().name(), "ToolkitMain");

    Walk early("Create3");
    early.act("CoverPage1=x").pages.create18.SettingsPath.setText("kept");
    EXPECT_THROW(early.pages.toolkitMain.InitEverything(), RuntimeFailure);
    EXPECT_EQ(early.text("Create3", "CoverPage1") + early.text("Create18", "SettingsPath"), "kept");
}

}  // namespace
}  // namespace vrix
