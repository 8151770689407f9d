#include "forms/event.h"
#include "walk.h"

namespace vrix {
namespace {

constexpr const char* noProducts =
    "No Products Detected!: Vrix Administrative Toolkit has been unable to detect any installed Products.\r\n\r\n"
    "Please create a Product with the Administrative Toolkit before you use the ";

TEST(Shell, TheSplashGivesWayOnce) {
    Walk walk;
    runEvent(walk.windows, [&] { walk.program.start(); });
    EXPECT_EQ(walk.front(), "SplashScreen");
    EXPECT_FALSE(walk.pages.toolkitMain.visible());
    EXPECT_EQ(walk.pages.splashScreen.left(), 1024 / 2 - walk.pages.splashScreen.size().width / 2);
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
    // Let go outside at the start of a run: no Product is known yet.
    walk.user.pressTask("EditImg", false);
    EXPECT_EQ(walk.message(), std::string(noProducts) + "Edit option.");
    walk.user.pressTask("DeleteImg");
    EXPECT_EQ(walk.message(), std::string(noProducts) + "Delete option.");
    EXPECT_EQ(walk.front(), "ToolkitMain");
    EXPECT_FALSE(walk.pages.delete1.visible());
    EXPECT_FALSE(walk.pages.toolkitMain.DeleteImg.pressed());

    walk.put("Toolkit\\Products", "Manual", "K");
    walk.user.pressTask("EditImg", false);
    EXPECT_EQ(walk.message(), std::string(noProducts) + "Edit option.");
    walk.user.pressTask("EditImg");
    EXPECT_EQ(walk.front(), "Edit1");
    walk.user.press("ExitBtn").pressTask("DeleteImg", false);
    EXPECT_EQ(walk.message(), "");
    EXPECT_EQ(walk.front(), "ToolkitMain");
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
    walk.user.pressTask("CreateImg");
    EXPECT_EQ(walk.front(), "Create1");
}

TEST(Shell, OnlyTheMainScreenEndsTheProgram) {
    for (const bool byFrame : {false, true}) {
        Walk walk;
        walk.createTo("Create3");
        walk.user.close();
        EXPECT_EQ(walk.front(), "ToolkitMain");
        EXPECT_FALSE(walk.windows.ended);
        byFrame ? walk.user.close() : walk.user.press("ExitBtn");
        EXPECT_TRUE(walk.windows.ended);
        EXPECT_EQ(walk.tree(), "");
    }
}

TEST(Shell, InitEverythingClearsTheInputsOfAllPages) {
    Walk walk;
    walk.createTo("Create18");
    for (const Option& option : walk.pages.options.all()) {
        if (is<TextBox>(*option.control)) option.control->restore("text");
        if (is<CheckBox>(*option.control)) option.control->restore("1");
    }
    walk.pages.toolkitMain.InitEverything();
    for (const Option& option : walk.pages.options.all()) {
        const bool kept = option.name == "DefaultSmartFields";  // the one input that it does not clear
        const char* cleared = is<ComboBox>(*option.control) ? "-1" : "0";
        const char* empty = is<TextBox>(*option.control) ? "" : cleared;
        EXPECT_EQ(option.control->stored(), kept ? "1" : empty) << option.name;
    }
    EXPECT_FALSE(walk.pages.create8.TopicNames.isTable());
    walk.user.at("Create18").press("ExitBtn");
    EXPECT_EQ(walk.front(), "ToolkitMain");
}

}  // namespace
}  // namespace vrix
