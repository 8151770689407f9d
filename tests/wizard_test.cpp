#include "walk.h"

namespace vrix {
namespace {

TEST(Identity, TheKeyFollowsTheNameAndIsTestedFirst) {
    Walk walk;
    walk.put("Taken", "CreationDate", "1/1/2026");
    walk.put("Toolkit\\Develop", "Creation Date", "1/1/2026");
    walk.createTo("Create2");
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.message(),
              "Invalid Product Key: Please enter a Product key for the Product settings to be stored under.");
    walk.user.type("ProductKey", "Develop").press("NextBtn");
    EXPECT_EQ(walk.message(), "Invalid Product Name: Please enter a Product name.");
    walk.user.type("ProductName", "A").type("ProductKey", "Mine").type("ProductName", "AB");
    EXPECT_EQ(walk.text("Create2", "ProductKey"), "AB");
    walk.user.type("ProductKey", "Taken").press("NextBtn");
    EXPECT_EQ(walk.message(),
              "Invalid Product Key: Sorry - this Product key already exists. Please enter another, unique, key.");
    EXPECT_EQ(walk.text("Create2", "ProductKey") + walk.text("Create2", "ProductName"), "AB");
    walk.user.type("ProductKey", "Develop").press("NextBtn");  // the develop tree does not count
    EXPECT_EQ(walk.front(), "Create3");
}

TEST(CoverPages, AreCheckedInTheirOrder) {
    struct Case {
        std::vector<std::string> paths;
        std::vector<std::string> names;
        std::string message;
    };
    const std::string same =
        "Invalid Cover Page Name: Two or more of your cover pages have the same name. Please make each name unique.";
    const std::string unnamed = "Missing Cover Page Name: You have not entered a name for one of your cover pages.";
    const std::string missing = "Missing Cover Page: Please enter at least one cover page for your Product";
    const std::vector<Case> cases{
        {{"", "", ""}, {"", "", ""}, missing},  {{"", "p", "p"}, {"", "b", "c"}, missing},
        {{"", "", ""}, {"a", "", ""}, missing}, {{"p", "p", ""}, {"a", "", ""}, unnamed},
        {{"p", "p", ""}, {"a", "", "a"}, same}, {{"p", "", ""}, {"a", "b", "b"}, same},
        {{"p", "", ""}, {"a", "a", "c"}, same}, {{"p", "p", ""}, {"a", "A", ""}, ""},
        {{"p", "", ""}, {"a", "b", "c"}, ""},   {{" ", "", ""}, {" ", "", ""}, ""},
    };
    for (const Case& c : cases) {
        Walk walk;
        walk.createTo("Create3");
        for (std::size_t n = 0; n < 3; ++n) {
            const std::string box = "CoverPage" + std::to_string(n + 1);
            walk.user.type(box, c.paths[n]).type(box + "Name", c.names[n]);
        }
        walk.user.press("NextBtn");
        EXPECT_EQ(walk.message(), c.message);
        EXPECT_EQ(walk.front(), c.message.empty() ? "Create4" : "Create3");
    }
}

TEST(CoverPages, OptionsStartAnewEachTime) {
    Walk walk;
    walk.createTo("Create3");
    walk.user.type("CoverPage1", "p").type("CoverPage1Name", "One").type("CoverPage3Name", "Three").press("NextBtn");
    const Create4& page = walk.pages.create4;
    EXPECT_EQ(page.DefaultCoverPage.rows(), (std::vector<std::string>{"One", "Three"}));
    EXPECT_EQ(page.AllowUseAlternateCoverPage.value(), 0);  // slot 2 decides
    walk.user.choose("DefaultCoverPage", 1).check("AllowNoCoverPage", false).press("BackBtn");
    walk.user.type("CoverPage2Name", "Two").press("NextBtn");
    EXPECT_EQ(page.DefaultCoverPage.text(), "One");
    EXPECT_EQ(page.AllowUseAlternateCoverPage.value() + page.AllowNoCoverPage.value(), 2);
}

TEST(Browse, TakesTheDialogsFileNameAlsoAfterACancel) {
    Walk walk;
    walk.createTo("Create3");
    walk.user.type("CoverPage2", "typed").press("Browse2Btn");  // a cancel as the first use
    EXPECT_EQ(walk.text("Create3", "CoverPage2"), "");
    walk.dialog.answers = {"C:\\a.doc", std::nullopt};
    walk.user.press("Browse1Btn").type("CoverPage3", "typed").press("Browse3Btn");
    EXPECT_EQ(walk.text("Create3", "CoverPage3"), "C:\\a.doc");
    const FileQuestion& q = walk.dialog.questions.back();
    EXPECT_EQ(q.title + '|' + q.filter + '|' + q.defaultExtension + '|' + q.initialFolder + '|' + q.fileName,
              "Browse For Cover Page|Word Documents (*.doc)|*.doc|.doc|C:\\|C:\\a.doc");

    Walk control;
    control.createTo("Create17");
    control.dialog.answers = {"C:\\t.dot", std::nullopt};
    control.user.press("Browse1Btn").press("Browse2Btn");
    EXPECT_EQ(control.text("Create17", "DefaultOutputFile"), "C:\\t.dot");
    ASSERT_EQ(control.dialog.questions.size(), 2u);
    EXPECT_EQ(control.dialog.questions[0].title + control.dialog.questions[0].filter,
              "Browse For Product TemplateWord Templates (*.dot)|*.dot");
    EXPECT_EQ(control.dialog.questions[1].title + control.dialog.questions[1].filter,
              "Select Default Output DocumentWord Documents (*.doc)|*.doc");
    EXPECT_EQ(control.dialog.questions[1].initialFolder, "");
}

TEST(OptionalSections, AFileTurnsTheSectionOn) {
    Walk walk;
    walk.createTo("Create5");
    const Create5& page = walk.pages.create5;
    const auto switches = [&] { return page.mayDisable.stored() + page.display.stored() + page.byDefault.stored(); };
    EXPECT_EQ(switches(), "000");
    walk.dialog.answers = {"C:\\s.doc"};
    walk.user.press("Browse1Btn");
    EXPECT_EQ(switches(), "111");
    walk.user.check("ShowCourseBriefing", false).type("CourseBriefPath", "C:\\s.doc");
    EXPECT_EQ(switches(), "101");  // no change, no event
    walk.user.type("CourseBriefPath", "");
    EXPECT_EQ(switches(), "101");
    walk.user.type("CourseBriefPath", "s");
    EXPECT_EQ(switches(), "111");
}

TEST(UserFields, BoxesGoByThePathAndStayEnabled) {
    Walk walk;
    walk.createTo("Create10");
    EXPECT_EQ(walk.pages.create10.field(3).pos.rows(),
              (std::vector<std::string>{"After Cover", "After Content Summary", "Before Topics", "After Topics",
                                        "After Conclusion"}));
    walk.user.type("UserDef2", "R&D").type("UserDef3Path", "p.doc").choose("UserDef3Pos", 4);
    for (int n = 0; n < 4; ++n) walk.user.press("NextBtn");
    ASSERT_EQ(walk.front(), "Create14");
    const auto box = [&](int n) -> const CheckBox& {
        return static_cast<const CheckBox&>(control(walk.pages, "Create14", "AllowNoUserDefined" + std::to_string(n)));
    };
    EXPECT_EQ(box(2).caption(), "R&D");
    EXPECT_FALSE(box(2).enabled());
    EXPECT_EQ(box(3).caption(), "");
    EXPECT_TRUE(box(3).enabled());
    walk.user.check("AllowNoUserDefined3");
    for (int n = 0; n < 4; ++n) walk.user.press("BackBtn");
    walk.user.type("UserDef3Path", "").type("UserDef1Path", "q.doc");
    for (int n = 0; n < 4; ++n) walk.user.press("NextBtn");
    EXPECT_TRUE(box(1).enabled() && box(3).enabled());
    EXPECT_EQ(box(3).value(), 0);
}

TEST(SmartFields, AreListedWithTheirDelimiters) {
    Walk walk;
    walk.createTo("Create19");
    const Create19& page = walk.pages.create19;
    walk.user.press("CreateBtn");
    EXPECT_EQ(walk.message(), "Empty SmartField: You have not entered a SmartField.");
    EXPECT_EQ(page.SmartFieldsDefault.value(), 0);
    walk.user.press("DeleteBtn");
    EXPECT_EQ(walk.message(), "No SmartFields To Delete: No SmartFields to delete");
    for (const char* text : {"Price", "Date", "<!!>"}) walk.user.type("SmartFieldText", text).press("CreateBtn");
    EXPECT_EQ(page.SmartFields.rows(), (std::vector<std::string>{"<!Price!>", "<!Date!>", "<!<!!>!>"}));
    EXPECT_EQ(page.SmartFieldsDefault.value(), 1);
    walk.user.choose("SmartFields", 1);
    EXPECT_EQ(page.SmartFieldText.text(), "Date");
    walk.user.type("SmartFieldText", "").press("UpdateBtn");  // an empty box is taken
    EXPECT_EQ(page.SmartFields.rows()[1], "<!!>");
    EXPECT_EQ(page.SmartFieldText.text(), "Price");  // the first row is shown again
    walk.user.press("DeleteBtn");
    EXPECT_EQ(walk.pages.smartFieldModule.SmartFieldList.at(1), "<!<!!>!>");
    walk.user.press("DeleteBtn").press("DeleteBtn");
    EXPECT_EQ(page.SmartFieldCount, 0);
    EXPECT_EQ(page.SmartFieldsDefault.value(), 0);
}

}  // namespace
}  // namespace vrix
