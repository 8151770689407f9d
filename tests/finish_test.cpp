#include "store/cregistry.h"
#include "walk.h"

namespace vrix {
namespace {

const std::string noFile =
    "Invalid Settings File: You have not entered a file to output the Product Settings To. If you continue without an "
    "output file, you will not be able to export this Product to another system.\r\nDo you wish to continue?";

TEST(Finish, ALargeProductReachesStoreAndFile) {
    Walk walk;
    walk.createTo("Create2");
    walk.user.type("ProductName", "Big \"Manual\" & more").type("ProductKey", "Big\\Key").press("NextBtn");
    for (const std::string n : {"1", "2", "3"}) {
        walk.user.type("CoverPage" + n, "\\\\Server\\c" + n + ".doc").type("CoverPage" + n + "Name", "Cover " + n);
    }
    walk.user.press("NextBtn").choose("DefaultCoverPage", 2);
    for (int n = 0; n < 4; ++n) walk.user.press("NextBtn");
    for (int n = 1; n <= 13; ++n) {
        walk.addTopic("Topic " + std::to_string(n), "%DOCS%\\t" + std::to_string(n) + ".doc");
    }
    walk.user.press("NextBtn").choose("OrderOption(5)").press("MoveUpBtn").press("MoveUpBtn");
    walk.user.press("PageUpBtn").press("MoveDownBtn").press("NextBtn");
    walk.user.mark("DependsList", 11).choose("Topics", 12).mark("DependsList", 0).mark("DependsList", 11);
    walk.user.press("NextBtn");
    for (int n = 1; n <= 10; ++n) {
        const std::string field = "UserDef" + std::to_string(n);
        walk.user.type(field, "Field " + std::to_string(n)).type(field + "Path", "f" + std::to_string(n));
        walk.user.choose(field + "Pos", n % 5);
        if (n == 3 || n == 5 || n == 8 || n == 10) walk.user.press("NextBtn");
    }
    for (const auto& [box, odd] : std::vector<std::pair<std::string, int>>{
             {"AllowNoUserDefined", 0}, {"DefaultUserDef", 1}, {"ShowUserDefined", 0}}) {
        for (int n = 1 + odd; n <= 10; n += 2) walk.user.check(box + std::to_string(n));
        walk.user.press("NextBtn");
    }
    for (const char* text : {"Price", "Date", "Place", "Name"}) {
        walk.user.type("SmartFieldText", text).press("CreateBtn");
    }
    walk.user.press("NextBtn").press("NextBtn").type("SettingsPath", walk.path("big.kls")).press("NextBtn");
    ASSERT_EQ(walk.front(), "ToolkitMain");
    EXPECT_EQ(walk.file("big.kls"), expected("big.kls"));
    EXPECT_EQ(walk.tree(), expected("big.tree"));
}

TEST(Finish, AsksBeforeItGoesOnWithoutAFile) {
    Walk walk;
    walk.createTo("Create18");
    walk.windows.answers = {Answer::cancel};
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.message(), noFile);
    EXPECT_EQ(walk.front(), "Create18");
    EXPECT_EQ(walk.tree(), "");
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.front(), "ToolkitMain");
    EXPECT_NE(walk.tree("Toolkit\\Manual"), "");

    Walk exported;
    exported.start().createProduct("Manual").editProduct().user.press("ExportSettingsBtn");
    exported.message();
    exported.user.press("NextBtn");  // OK leads nowhere
    EXPECT_EQ(exported.message(), noFile);
    EXPECT_EQ(exported.front(), "Create18");
}

TEST(Finish, TopicsTakeTheirRowsAsTheyStand) {
    Walk one;
    one.createTo("Create8");
    one.addTopic("Only", "o.doc").user.press("NextBtn");
    one.pages.create18.show();
    one.user.at("Create18").press("NextBtn");
    EXPECT_EQ(one.tree("Toolkit\\Manual\\Dependencies\\Matrix"), "[Toolkit\\Manual\\Dependencies\\Matrix]\n0=\n");
    EXPECT_EQ(one.tree("Toolkit\\Manual\\Topics"), "[Toolkit\\Manual\\Topics]\nOnly=o.doc\n");

    // More Topics than dependency rows: what was saved before the first missing one stands.
    Walk more;
    more.createTo("Create18");
    more.pages.create9.Depends.sizeTo(0);
    more.user.press("NextBtn");
    EXPECT_EQ(more.message(), "Vrix 3.0 Administrative Toolkit: Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_EQ(more.tree("Toolkit\\Manual"),
              "[Toolkit\\Manual]\nCreation Date=15/11/2026 19:30:05\n[Toolkit\\Manual\\Topics]\nIntro=intro.doc\n"
              "Tools=tools.doc\n[Toolkit\\Manual\\Dependencies]\n[Toolkit\\Manual\\Dependencies\\IndexTable]\nIntro=0\n"
              "Tools=1\n[Toolkit\\Manual\\Dependencies\\Matrix]\n0=\n");
}

// Every option stands in the store under its own name with the content of its own control.
TEST(Finish, EveryOptionIsStoredFromItsControl) {
    Walk walk;
    walk.createTo("Create18");
    std::string stored = "[Toolkit\\Manual\\Options]\n";
    int number = 0;
    for (const Option& option : walk.pages.options.all()) {
        if (is<TextBox>(*option.control)) option.control->restore("t" + std::to_string(++number));
        if (is<CheckBox>(*option.control)) option.control->restore(++number % 3 == 0 ? "1" : "0");
        if (is<ComboBox>(*option.control) && option.name != "DefaultCoverPage") {
            option.control->restore(std::to_string(++number % 5));
        }
    }
    for (const Option& option : walk.pages.options.all()) stored += option.name + '=' + option.control->stored() + '\n';
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.tree("Toolkit\\Manual\\Options"), stored);
}

}  // namespace
}  // namespace vrix
