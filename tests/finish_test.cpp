#include "walk.h"

namespace vrix {
namespace {

const std::string noFile =
    "Invalid Settings File: You have not entered a file to output the Product Settings To. If you continue without an "
    "output file, you will not be able to export this Product to another system.\r\nDo you wish to continue?";

TEST(Finish, ALargeProductReachesStoreAndFile) {
    Walk walk("Create2");
    walk.act("ProductName=Big_\"Manual\"_&_more ProductKey=Big\\Key NextBtn");
    for (const std::string n : {"1", "2", "3"}) {
        walk.act("CoverPage" + n + "=\\\\Server\\c" + n + ".doc CoverPage" + n + "Name=Cover_" + n);
    }
    walk.act("NextBtn DefaultCoverPage=2 NextBtn*4");
    for (int n = 1; n <= 13; ++n) {
        const std::string number = std::to_string(n);
        walk.act("TopicName=Topic_" + number + " TopicPath=%DOCS%\\t" + number + ".doc CreateBtn");
    }
    walk.act("NextBtn OrderOption(5) MoveUpBtn MoveUpBtn PageUpBtn MoveDownBtn NextBtn");
    walk.act("DependsList=11 Topics=12 DependsList=0 DependsList=11 NextBtn*5");
    for (const std::string text : {"Price", "Date", "Place", "Name"}) walk.act("SmartFieldText=" + text + " CreateBtn");
    walk.act("NextBtn NextBtn").user.type("SettingsPath", walk.path("big.kls"));
    ASSERT_EQ(walk.act("NextBtn").front(), "ToolkitMain");
    EXPECT_EQ(walk.file("big.kls"), expected("big.kls"));
    EXPECT_EQ(walk.tree(), expected("big.tree"));
}

TEST(Finish, AsksBeforeItGoesOnWithoutAFile) {
    Walk walk("Create18");
    walk.windows.answers = {Answer::cancel};
    EXPECT_EQ(walk.act("NextBtn").message(), noFile);
    EXPECT_EQ(walk.front() + walk.tree(), "Create18");
    EXPECT_EQ(walk.act("NextBtn").front(), "ToolkitMain");
    EXPECT_NE(walk.tree("Toolkit\\Manual"), "");

    Walk exported;
    exported.start().createProduct("Manual").editProduct().act("ExportSettingsBtn").message();
    EXPECT_EQ(exported.act("NextBtn").message(), noFile);  // OK stays on the page
    EXPECT_EQ(exported.front(), "Create18");
}

TEST(Finish, TopicsAreSavedWithTheirDependencyRows) {
    Walk one("Create8");
    one.act("TopicName=Only TopicPath=o.doc CreateBtn NextBtn");
    one.pages.create18.show();
    writeBytes(one.path("one.kls"), "older");
    std::filesystem::create_hard_link(one.path("one.kls"), one.path("linked"));
    one.user.at("Create18").type("SettingsPath", one.path("one.kls")).at("Create18").press("NextBtn");
    EXPECT_EQ(one.file("linked"), "older");  // the file of that name is another one
    EXPECT_NE(one.file("one.kls").find("Matrix]\r\n\"0\"=\"\"\r\n\r\n"), std::string::npos);
    EXPECT_EQ(one.tree("Toolkit\\Manual\\Dependencies\\Matrix"), "[Toolkit\\Manual\\Dependencies\\Matrix]\n0=\n");
    EXPECT_EQ(one.tree("Toolkit\\Manual\\Topics"), "[Toolkit\\Manual\\Topics]\nOnly=o.doc\n");

    // More Topics than dependency rows: what was saved before the first missing one stands.
    Walk more("Create18");
    more.pages.create9.Depends.sizeTo(0);
    EXPECT_EQ(more.act("NextBtn").message(),
              "Vrix 3.0 Administrative Toolkit: Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_EQ(more.tree("Toolkit\\Manual"),
              "[Toolkit\\Manual]\nCreation Date=15/11/2026 19:30:05\n[Toolkit\\Manual\\Topics]\nIntro=intro.doc\n"
              "Tools=tools.doc\n[Toolkit\\Manual\\Dependencies]\n[Toolkit\\Manual\\Dependencies\\IndexTable]\nIntro=0\n"
              "Tools=1\n[Toolkit\\Manual\\Dependencies\\Matrix]\n0=\n");
}

TEST(Finish, EveryOptionReachesStoreAndFileUnderItsOwnName) {
    for (unsigned run = 0; run < 7; ++run) {
        Walk walk("Create18");
        walk.pages.create4.DefaultCoverPage.addItem("second");
        walk.setOptions(run);
        walk.user.type("SettingsPath", walk.path("x.kls")).press("NextBtn");
        const std::string file = walk.file("x.kls");
        std::string stored = "[Toolkit\\Manual\\Options]\n";
        for (const ToldOption& option : toldOptions()) {
            std::string data = option.content(run);
            stored += option.name + '=' + data + '\n';
            if (option.kind == "path") data.insert(2, 1, '\\');
            EXPECT_NE(file.find("\r\n\"" + option.name + "\"=\"" + data + "\"\r\n"), std::string::npos) << option.name;
        }
        EXPECT_EQ(walk.tree("Toolkit\\Manual\\Options"), stored);
    }
}

}  // namespace
}  // namespace vrix
