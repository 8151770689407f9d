#include "walk.h"

namespace vrix {
namespace {

TEST(Identity, TheKeyFollowsTheNameAndIsTestedFirst) {
    Walk walk;
    walk.put("Taken", "CreationDate", "1/1/2026");
    walk.put("Toolkit\\Develop", "Creation Date", "1/1/2026");
    EXPECT_EQ(walk.createTo("Create2").act("NextBtn").message(),
              "Invalid Product Key: Please enter a Product key for the Product settings to be stored under.");
    EXPECT_EQ(walk.act("ProductKey=Develop NextBtn").message(), "Invalid Product Name: Please enter a Product name.");
    walk.act("ProductName=A ProductKey=Mine ProductName=AB");
    EXPECT_EQ(walk.text("Create2", "ProductKey"), "AB");
    EXPECT_EQ(walk.act("ProductKey=Taken NextBtn").message(),
              "Invalid Product Key: Sorry - this Product key already exists. Please enter another, unique, key.");
    EXPECT_EQ(walk.text("Create2", "ProductKey") + walk.text("Create2", "ProductName"), "AB");
    EXPECT_EQ(walk.act("ProductKey=Develop NextBtn").front(), "Create3");  // the develop tree does not count
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
        Walk walk("Create3");
        for (std::size_t n = 0; n < 3; ++n) {
            const std::string box = "CoverPage" + std::to_string(n + 1);
            walk.user.type(box, c.paths[n]).type(box + "Name", c.names[n]);
        }
        EXPECT_EQ(walk.act("NextBtn").message(), c.message);
        EXPECT_EQ(walk.front(), c.message.empty() ? "Create4" : "Create3");
    }
}

TEST(CoverPages, OptionsAreResetEachTime) {
    Walk walk("Create3");
    walk.act("CoverPage1=p CoverPage1Name=One CoverPage3Name=Three NextBtn");
    const Create4& page = walk.pages.create4;
    EXPECT_EQ(page.DefaultCoverPage.rows(), (std::vector<std::string>{"One", "Three"}));
    EXPECT_EQ(page.AllowUseAlternateCoverPage.value(), 0);  // slot 2 decides
    walk.act("DefaultCoverPage=1 AllowNoCoverPage=0 DefaultCover=0 BackBtn CoverPage2Name=Two NextBtn");
    EXPECT_EQ(page.DefaultCoverPage.text(), "One");
    EXPECT_EQ(page.AllowUseAlternateCoverPage.value() + page.AllowNoCoverPage.value() + page.DefaultCover.value(), 3);
}

TEST(Browse, OpensItsDialogAndTakesTheFileNameAlsoAfterACancel) {
    struct Case {
        std::string page, words, box, question;
    };
    const std::string word = "|Word Documents (*.doc)|*.doc|.doc|";
    const std::string field = "Browse For User Defined Documents" + word + "|",
                      brief = "Browse For Course Briefing" + word + "|";
    const std::vector<Case> cases{
        {"Create3", "Browse1Btn", "CoverPage1", "Browse For Cover Page" + word + "C:\\|"},
        {"Create3", "Browse1Btn Browse2Btn", "CoverPage2", "Browse For Cover Page" + word + "C:\\|C:\\a"},
        {"Create3", "Browse3Btn", "CoverPage3", "Browse For Cover Page" + word + "C:\\|"},
        {"Create5", "Browse1Btn", "CourseBriefPath", brief},
        {"Create6", "Browse1Btn", "TOCPath", brief},
        {"Create7", "Browse1Btn", "ConclusionPath", brief},
        {"Create8", "Browse1Btn", "TopicPath", brief},
        {"Create10", "Browse1Btn", "UserDef1Path", field},
        {"Create11", "Browse2Btn", "UserDef5Path", field},
        {"Create12", "Browse3Btn", "UserDef8Path", field},
        {"Create13", "Browse2Btn", "UserDef10Path", field},
        {"Create17", "Browse1Btn", "TemplatePath", "Browse For Product Template|Word Templates (*.dot)|*.dot|.doc||"},
        {"Create17", "Browse1Btn Browse2Btn", "DefaultOutputFile", "Select Default Output Document" + word + "|C:\\a"},
        {"Create18", "Browse1Btn", "SettingsPath", "Browse For Export File|Kelmarsh Settings (*.kls)|*.kls|.kls||"},
    };
    for (const Case& c : cases) {
        Walk walk(c.page);
        walk.act(c.box + "=typed");
        walk.dialog.answers = {"C:\\a"};  // and a cancel of the next dialog
        walk.act(c.words);
        const FileQuestion& q = walk.dialog.questions.back();
        EXPECT_EQ(q.title + '|' + q.filter + '|' + q.defaultExtension + '|' + q.initialFolder + '|' + q.fileName,
                  c.question);
        EXPECT_EQ(walk.text(c.page, c.box), "C:\\a") << c.page << c.words;
    }
    Walk walk("Create3");
    walk.act("CoverPage2=typed Browse2Btn");  // a cancel at the first use
    EXPECT_EQ(walk.text("Create3", "CoverPage2"), "");
}

TEST(OptionalSections, AFileTurnsTheSectionOn) {
    Walk walk("Create5");
    const Create5& page = walk.pages.create5;
    const auto switches = [&] { return page.mayDisable.stored() + page.display.stored() + page.byDefault.stored(); };
    EXPECT_EQ(switches(), "000");
    const std::vector<std::pair<std::string, std::string>> steps{
        {"CourseBriefPath=s.doc", "111"},
        {"ShowCourseBriefing=0 CourseBriefPath=s.doc", "101"},  // unchanged, so no event
        {"CourseBriefPath=", "101"},
        {"CourseBriefPath=s", "111"},
    };
    for (const auto& [words, expected] : steps) {
        walk.act(words);
        EXPECT_EQ(switches(), expected) << words;
    }
}

TEST(UserFields, BoxesAreEnabledByThePathAndStayEnabled) {
    Walk walk("Create10");
    EXPECT_EQ(walk.pages.create10.field(3).pos.rows(),
              (std::vector<std::string>{"After Cover", "After Content Summary", "Before Topics", "After Topics",
                                        "After Conclusion"}));
    walk.act("UserDef2=R&D UserDef3Path=p.doc UserDef3Pos=4 NextBtn*4");
    ASSERT_EQ(walk.front(), "Create14");
    const auto box = [&](int n) -> const CheckBox& {
        return static_cast<const CheckBox&>(control(walk.pages, "Create14", "AllowNoUserDefined" + std::to_string(n)));
    };
    EXPECT_EQ(box(2).caption() + box(3).caption(), "R&D");
    EXPECT_TRUE(!box(2).enabled() && box(3).enabled());
    walk.act("AllowNoUserDefined3=1 BackBtn*4 UserDef3Path= UserDef1Path=q.doc NextBtn*4");
    EXPECT_TRUE(box(1).enabled() && box(3).enabled());
    EXPECT_EQ(box(3).value(), 0);
}

TEST(SmartFields, AreListedWithTheirDelimiters) {
    Walk walk("Create19");
    const Create19& page = walk.pages.create19;
    EXPECT_EQ(walk.act("CreateBtn").message(), "Empty SmartField: You have not entered a SmartField.");
    EXPECT_EQ(page.SmartFieldsDefault.value(), 0);
    EXPECT_EQ(walk.act("UpdateBtn DeleteBtn").message(), "No SmartFields To Delete: No SmartFields to delete");
    for (const std::string text : {"Price", "Date", "<!!>"}) {
        walk.act("SmartFieldText=" + text + " CreateBtn");
        EXPECT_EQ(page.SmartFields.text() + page.SmartFieldText.text(), "<!" + text + "!>");
    }
    EXPECT_EQ(page.SmartFields.rows(), (std::vector<std::string>{"<!Price!>", "<!Date!>", "<!<!!>!>"}));
    EXPECT_EQ(page.SmartFieldsDefault.value(), 1);
    walk.act("SmartFieldsDefault=0 CreateBtn SmartFields=1");  // the refusal ticks the box as well
    EXPECT_EQ(page.SmartFieldText.text() + page.SmartFieldsDefault.stored(), "Date1");
    walk.act("SmartFieldText= UpdateBtn");  // an empty text is accepted
    EXPECT_EQ(page.SmartFields.rows()[1] + walk.pages.smartFieldModule.SmartFieldList.at(1), "<!!><!!>");
    EXPECT_EQ(page.SmartFieldText.text(), "Price");  // the first row is shown again
    walk.act("DeleteBtn");
    EXPECT_EQ(walk.pages.smartFieldModule.SmartFieldList.at(1), "<!<!!>!>");
    EXPECT_EQ(page.SmartFields.text() + page.SmartFieldText.text(), "<!!>");
    walk.act("DeleteBtn SmartFieldText=One UpdateBtn");
    EXPECT_EQ(page.SmartFields.rows(), std::vector<std::string>{"<!One!>"});
    EXPECT_EQ(walk.act("DeleteBtn").text("Create19", "SmartFieldText"), "");
    EXPECT_EQ(page.SmartFieldCount + page.SmartFieldsDefault.value(), 0);
}

}  // namespace
}  // namespace vrix
