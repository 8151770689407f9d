#include <sstream>

#include "common/code_page.h"
#include "common/runtime_failure.h"
#include "forms/event.h"
#include "walk.h"

namespace vrix {
namespace {

std::string report(int number) {
    return "Vrix 3.0 Administrative Toolkit: Run-time error '" + std::to_string(number) + "':\r\n\r\n" +
           failureText(static_cast<FailureNumber>(number));
}

// A Product with the key K whose Topics stand as a line tells: "T" its Topics, "A" the added ones, "I" the index table,
// "M" the matrix, each with name=text pairs in which "_" is a blank.
class StoredTopics {
public:
    StoredTopics(const std::string& line, bool develop) : root_(develop ? "Toolkit\\K" : "K") {
        walk.put(develop ? "Toolkit\\Products" : "Products", "P", "K");
        std::istringstream parts(line);
        std::string section;
        for (std::string word; parts >> word;) {
            const auto equals = word.find('=');
            if (equals == std::string::npos) {
                section = section_(word[0]);
            } else {
                std::string text = word.substr(equals + 1);
                for (char& c : text) c = c == '_' ? ' ' : c;
                if (text.ends_with(';')) text.pop_back();
                walk.put(section, word.substr(0, equals), text);
            }
        }
        walk.start().editProduct();
    }

    Walk walk;

    std::string state() {
        std::string line;
        for (const char part : std::string("TAIM")) {
            line += line.empty() ? "" : "; ";
            line += part;
            std::istringstream lines(walk.tree(section_(part)));
            std::string entry;
            std::getline(lines, entry);  // the header
            while (std::getline(lines, entry) && !entry.starts_with('[')) {
                for (char& c : entry) c = c == ' ' ? '_' : c;
                line += ' ' + entry;
            }
        }
        return line;
    }

private:
    std::string section_(char part) const {
        const char* below = part == 'T'   ? "\\Topics"
                            : part == 'A' ? "\\Toolkit\\Topics"
                            : part == 'I' ? "\\Dependencies\\IndexTable"
                                          : "\\Dependencies\\Matrix";
        return root_ + below;
    }
    std::string root_;
};

const std::string three = "T A=a B=b C=c; I A=0 B=1 C=2; M 0= 1=0 2=0_1";
const std::string mixed = "T A=a B=b C=c; A X=x Y=y; I A=0 B=1 C=2 X=3 Y=4; M 0= 1=0 2=1 3=2 4=3";
const std::string tens = "T A=a B=b; I A=10 B=11; M 10=11 11=";
const std::string longer = "T A=a B=b; I A=0 B=1 C=2 D=3 E=4 F=5; M 0=5";
const std::string pair = "T A=a; A X=x; I A=0 X=1; M 0= 1=0";

// Steps: "-r" deletes row r, "=rN" gives row r the name N, "+N" adds a Topic.
TEST(TopicRewrite, CarriesIndexesAndRowsOver) {
    struct Case {
        std::string before;
        bool develop;
        std::vector<std::string> steps;
        std::string after;
    };
    const std::vector<Case> cases{
        {three, true, {}, "T A=a B=b C=c; A; I A=0 B=1 C=2 =; M 0= 1=0 2=0_1 ="},
        {three, true, {"-1"}, "T A=a C=c; A; I A=0 C=; M 0= 2=0_1 ="},
        {three, true, {"-2"}, "T A=a B=b; A; I A=0 B=1 =; M 0= 1=0 ="},
        {three, true, {"-0", "-0"}, "T C=c; A; I A=0 B=1 C=2; M 0= 1=0 2=0_1"},
        {three, true, {"-0", "-0", "-0"}, "T C=c; A; I A=0 B=1 C=2; M 0= 1=0 2=0_1"},
        {three, true, {"+D"}, "T A=a B=b C=c D=d!; A; I A=0 B=1 C=2 D=3 =; M 0= 1=0 2=0_1 3= ="},
        {three, true, {"=1Q"}, "T A=a Q=q! C=c; A; I A=0 Q=1 C=2 =; M 0= 1=0 2=0_1 ="},
        {three, false, {"-0"}, "T B=b C=c; A; I B=0 C=; M 0= 1=0 ="},
        {three, false, {"=0Q"}, "T Q=q! B=b C=c; A; I Q=0 B=1 C=2 =; M 0= 1=0 2=0_1 ="},
        {mixed, false, {}, "T A=a B=b C=c; A X=x Y=y; I A=0 B=1 C=2 X=3 Y=4 =; M 0= 1=0 2=1 3=2 4=3 ="},
        {mixed, false, {"-3"}, "T A=a B=b C=c Y=y; A; I A=0 B=1 C=2 Y=; M 0= 1=0 2=1 3=2 ="},
        {mixed, false, {"-1"}, "T A=a C=c; A X=x Y=y; I A=0 C=1 X=2 Y=; M 0= 1=0 2=1 3=2 ="},
        {mixed, false, {"+Z"}, "T A=a B=b C=c; A X=x Y=y Z=z!; I A=0 B=1 C=2 X=3 Y=4 Z=5 =; M 0= 1=0 2=1 3=2 4=3 5= ="},
        {tens, true, {"-0", "+N"}, "T B=b N=n!; A; I B=10 N=11 =; M 10=11 11= ="},
        {tens, false, {"=1Q"}, "T A=a Q=q!; A; I A=10 Q=11 =; M 10=11 11= ="},
        {"T A=a B=b", true, {}, "T A=a B=b; A; I A=0 B=1 =; M 0= 1= ="},
        {"T A=a B=b C=c; I A=0; M 0=2", false, {}, "T A=a B=b C=c; A; I A=0 B=1 C=2 =; M 0=2 1= 2= ="},
        {longer, true, {"-1"}, "T A=a; A; I A=0 B=1 C=2 D=3 E=4 F=5; M 0=5"},
        {longer, false, {}, "T A=a B=b; A; I A=0 B=1 =; M 0=5 1= ="},
        {pair, false, {"-0"}, "T X=x; A; I A=0 X=1; M 0= 1=0"},
        {pair, false, {"-1"}, "T A=a; A; I A=0 X=1; M 0= 1=0"},
    };
    for (const Case& c : cases) {
        StoredTopics stored(c.before, c.develop);
        HeadlessUser& user = stored.walk.user;
        user.press("TopicsBtn");
        for (const std::string& step : c.steps) {
            if (step[0] != '+') user.choose("Topics", step[1] - '0');
            if (step[0] == '-') user.press("DeleteBtn");
            if (step[0] == '-') continue;
            const std::string name = step.substr(step[0] == '+' ? 1 : 2);
            user.type("TopicName", name).type("TopicPath", lowerCase(name) + "!");
            user.press(step[0] == '+' ? "CreateBtn" : "UpdateBtn");
        }
        user.press("NextBtn");
        EXPECT_EQ(stored.walk.front(), "Edit2");
        EXPECT_EQ(stored.state(), c.after) << c.before;
    }
}

TEST(TopicRewrite, AfterAReorderNoFailureIsIgnored) {
    struct Case {
        std::string before;
        bool develop;
        int raised;  // the row that is raised by one, or -1
        std::string after;
        int failure = 0;
    };
    const std::vector<Case> cases{
        {three, true, 0, "T B=b A=a C=c; A; I B=1 A=0 C=2; M 1=0 0= 2=0_1"},
        {three, false, 0, "T B=b A=a C=c; A; I B=0 A=1 C=2; M 0= 1=0 2=0_1"},
        {mixed, false, 3, "T; A X=x Y=y; I A=0 B=1 C=2 X=3 Y=4; M 0= 1=0 2=1 3=2 4=3", 13},
        {tens, true, 0, "T B=b A=a; A; I B=10 A=11; M 10=11 11="},
        {"T A=a B=b; M 0=", true, 0, "T; A; I; M 0=", 13},
        {"T A=a B=b; I A=0 B=1 C=2; M 0=", true, 0, "T; A; I A=0 B=1 C=2; M 0=", 9},
        {"T A=a; I A=0; M 0=", true, -1, "T A=a; A; I A=0; M 0="},
        {"T A=a; M 0=", true, -1, "T; A; I; M 0=", 13},
        {"I A=0", true, -2, "T; A; I A=0; M", 9},  // no Topics: the page cannot even open
    };
    for (const Case& c : cases) {
        StoredTopics stored(c.before, c.develop);
        HeadlessUser& user = stored.walk.user;
        user.press("TopicOrderBtn");
        if (c.raised > 0) user.choose("OrderOption(" + std::to_string(c.raised) + ")");
        if (c.raised >= 0) user.press("MoveUpBtn");
        if (c.raised >= -1) user.press("NextBtn");
        EXPECT_EQ(stored.walk.message(), c.failure == 0 ? "" : report(c.failure)) << c.before;
        EXPECT_EQ(stored.state(), c.after) << c.before;
    }
}

TEST(Dependencies, OfAStoredProductGoByIndexAndAreSavedByRow) {
    StoredTopics stored("T A=a B=b C=c; I C=0 A=2 B=1; M 2=0 0=1_2 1=", true);
    stored.walk.user.press("DependenciesBtn").mark("DependsList", 1).press("NextBtn");
    EXPECT_EQ(stored.state(), "T A=a B=b C=c; A; I C=2 A=0 B=1; M 2=0 0=1_2 1=");
    EXPECT_TRUE(stored.walk.pages.create9.Edit);

    const std::vector<std::pair<std::string, int>> fatal{
        {"T A=a; I A=0", 13}, {"T A=a; M x=0", 13}, {"T A=a; M 2=0", 9}, {"T A=a; M 40000=0", 6}, {"M 0=", 9}};
    for (const auto& [before, failure] : fatal) {
        StoredTopics broken(before, true);
        broken.walk.user.press("DependenciesBtn");
        EXPECT_EQ(broken.walk.message(), report(failure)) << before;
    }
}

TEST(EditMode, OnlyAnInstalledProductAloneHasAddedTopics) {
    StoredTopics installed(mixed, false);
    installed.walk.user.press("TopicsBtn").choose("Topics", 1).press("DeleteBtn");
    const std::string standard =
        "Confirm Deletion: This topic is part of the standard installation set for this product. If you delete it, you "
        "will not be able to recreate this topic, except with a reinstallation of the product. Are you sure you would "
        "like to continue?";
    EXPECT_EQ(installed.walk.message(), standard);
    installed.walk.user.choose("Topics", 2).press("DeleteBtn");
    EXPECT_EQ(installed.walk.message(), "Confirm Deletion: Are you sure you want to delete this topic?");
    installed.walk.user.choose("Topics", 2).press("DeleteBtn");  // the one behind now counts as standard
    EXPECT_EQ(installed.walk.message(), standard);

    StoredTopics beside(mixed, false);
    beside.walk.put("Toolkit\\Products", "D", "d");
    beside.walk.pages.productReg.GetProducts();
    beside.walk.user.press("TopicsBtn");
    EXPECT_EQ(beside.walk.pages.create8.i, 3);  // with any develop Product known, the added ones stay unread
}

TEST(EditMode, StoredSwitchesGiveWayToALoadedPathOnce) {
    Walk walk;
    walk.start().createProduct("Manual");
    for (const char* name : {"AllowNoTOC", "ShowTOC", "DefaultTOC"}) walk.put("Toolkit\\Manual\\Options", name, "0");
    walk.put("Toolkit\\Manual\\Options", "TOCPath", "t.doc");
    const Create6& page = walk.pages.create6;
    walk.editProduct().user.press("TableOfContentsBtn");
    EXPECT_EQ(page.display.stored() + page.path.text(), "1t.doc");
    walk.user.press("BackBtn").press("TableOfContentsBtn");
    EXPECT_EQ(page.display.stored(), "0");
    walk.user.press("NextBtn");
    EXPECT_NE(walk.tree("Toolkit\\Manual\\Options").find("ShowTOC=0"), std::string::npos);
}

TEST(EditMode, TextThatNoControlTakesEndsTheProgram) {
    struct Case {
        std::string button, value, text;
        int failure;
    };
    const std::vector<Case> cases{
        {"MiscellaneousSettingsBtn", "ShowCourseName", "", 13},
        {"ConclusionBtn", "ShowConclusion", "yes", 13},
        {"ContentSummaryBtn", "ShowContentSummary", "2", 380},
        {"ConclusionBtn", "ShowConclusion", "40000", 6},
        {"UserDefinedFieldsBtn", "UserDefined3Pos", "5", 380},
        {"UserDefinedFieldsBtn", "UserDefined1Pos", "-1", 380},
        {"MiscellaneousSettingsBtn", "ShowCourseName", " 1.4", 0},
        {"UserDefinedFieldsBtn", "UserDefined2Pos", "3.5", 0},
    };
    for (const Case& c : cases) {
        Walk walk;
        walk.start().createProduct("Manual").message();
        walk.put("Toolkit\\Manual\\Options", c.value, c.text);
        walk.editProduct().user.press(c.button);
        EXPECT_EQ(walk.message(), c.failure == 0 ? "" : report(c.failure)) << c.value << '=' << c.text;
    }
}

TEST(EditMode, ARenameLeavesTheSelectionBehind) {
    Walk walk;
    walk.start().createProduct("Manual").editProduct().user.press("ProductSettingsBtn");
    EXPECT_FALSE(walk.pages.create2.ProductKey.enabled());
    walk.user.type("ProductName", "Guide").type("DefaultCourseName", "Title").press("NextBtn");
    EXPECT_EQ(walk.tree("Toolkit\\Products"), "[Toolkit\\Products]\nGuide=Manual\n");
    EXPECT_TRUE(walk.tree("Toolkit\\Manual\\Options").ends_with("DefaultCourseName=Title\n"));
    walk.message();
    walk.user.press("ProductSettingsBtn").press("NextBtn");
    EXPECT_EQ(walk.message(),
              "Invalid Product Key: Please enter a Product key for the Product settings to be stored under.");
    walk.user.close().press("NextBtn").pressTask("CreateImg").press("NextBtn");
    EXPECT_EQ(walk.text("Create2", "Label1"), "Create A Product Wizard");
}

TEST(Export, IsWrittenFromTheStoreInItsOrder) {
    Walk walk;
    walk.put("Products", "Old", "K");
    walk.put("K", "CreationDate", "then");
    for (const char* section : {"K\\Dependencies\\IndexTable", "K\\Topics"}) walk.put(section, "A", "C:\\a");
    walk.put("K\\Dependencies\\Matrix", "0", "");
    walk.put("K\\Toolkit\\Topics", "X", "\\\\S\\x");
    for (const char* name : {"ShowTOC", "tocpath", "TOCPath", "Other"}) walk.put("K\\Options", name, "a\\b");
    walk.start().editProduct().user.press("ExportSettingsBtn").type("SettingsPath", walk.path("old.kls"));
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.front(), "Edit2");
    EXPECT_FALSE(walk.pages.create18.Edit);
    EXPECT_EQ(walk.file("old.kls"), expected("old.kls"));
}

TEST(Deletion, LeavesWhatItDoesNotName) {
    Walk walk;
    walk.put("Products", "Old", "K");
    walk.put("K\\Toolkit\\Topics", "X", "x");
    walk.put("K\\Options", "ShowTOC", "1");
    walk.start().createProduct("Manual");
    walk.user.pressTask("DeleteImg").choose("ProductList", 1).press("NextBtn");
    EXPECT_EQ(walk.text("Delete2", "DeleteProductTxt"), "Manual");
    walk.user.press("BackBtn").press("NextBtn").press("NextBtn");
    EXPECT_EQ(walk.tree("Toolkit"), "[Toolkit]\n[Toolkit\\Products]\n");
    walk.user.pressTask("DeleteImg").press("NextBtn").press("NextBtn");
    EXPECT_EQ(walk.tree("K"), "[K]\n[K\\Toolkit]\n[K\\Toolkit\\Topics]\nX=x\n");
    walk.message();
    walk.user.pressTask("DeleteImg");
    EXPECT_NE(walk.message().find("before you use the Delete option."), std::string::npos);
}

TEST(ImportFile, TakesTopicsUntilALineHasNoColon) {
    Walk walk;
    walk.createTo("Create8");
    walk.files.createText(walk.path("list.txt"))->writeLine("Safety rules:CH02:more\r\na:B\r\nbroken\r\nlast:x");
    EXPECT_EQ(ignoring([&] { walk.pages.create8.ImportFile(walk.path("list.txt")); }), FailureNumber::subscript);
    const Create8& page = walk.pages.create8;
    EXPECT_EQ(page.i, 2);
    EXPECT_EQ(page.Topics.rows(), (std::vector<std::string>{"Safety rules", "a"}));
    EXPECT_TRUE(page.TopicPaths.at(0).ends_with("ch02.doc"));
    EXPECT_EQ(page.TopicNames.at(2), "broken");
    EXPECT_EQ(ignoring([&] { walk.pages.create8.ImportFile(walk.path("none.txt")); }), FailureNumber::fileNotFound);
}

}  // namespace
}  // namespace vrix
