#include <algorithm>
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

// A walk to the hub of a Product with the key K. A line gives its Topics: "T" its own, "A" the added ones, "I" the
// index table, "M" the matrix, each with name=text pairs in which "_" is a space.
class StoredTopics : public Walk {
public:
    StoredTopics(const std::string& line, bool develop) : root_(develop ? "Toolkit\\K" : "K") {
        put(develop ? "Toolkit\\Products" : "Products", "P", "K");
        std::istringstream parts(line);
        std::string section;
        for (std::string word; parts >> word;) {
            const auto equals = word.find('=');
            if (equals == std::string::npos) {
                section = sections_.at(word[0]);
            } else {
                std::string data = word.substr(equals + 1);
                std::replace(data.begin(), data.end(), '_', ' ');
                if (data.ends_with(';')) data.pop_back();
                put(root_ + section, word.substr(0, equals), data);
            }
        }
        start().editProduct();
    }

    std::string state() {
        std::string line;
        for (const char part : std::string("TAIM")) {
            line += (line.empty() ? "" : "; ") + std::string(1, part);
            std::istringstream lines(tree(root_ + sections_.at(part)));
            std::string entry;
            std::getline(lines, entry);  // the header
            while (std::getline(lines, entry) && !entry.starts_with('[')) {
                std::replace(entry.begin(), entry.end(), ' ', '_');
                line += ' ' + entry;
            }
        }
        return line;
    }

private:
    std::map<char, std::string> sections_{{'T', "\\Topics"},
                                          {'A', "\\Toolkit\\Topics"},
                                          {'I', "\\Dependencies\\IndexTable"},
                                          {'M', "\\Dependencies\\Matrix"}};
    std::string root_;
};

const std::string three = "T A=a B=b C=c; I A=0 B=1 C=2; M 0= 1=0 2=0_1";
const std::string mixed = "T A=a B=b C=c; A X=x Y=y; I A=0 B=1 C=2 X=3 Y=4; M 0= 1=0 2=1 3=2 4=3";
const std::string tens = "T A=a B=b; I A=10 B=11; M 10=11 11=";
const std::string longer = "T A=a B=b; I A=0 B=1 C=2 D=3 E=4 F=5; M 0=5";
const std::string pair = "T A=a; A X=x; I A=0 X=1; M 0= 1=0";

// Steps: "-r" deletes row r, "=rN" gives row r the name N, "+N" adds a Topic.
TEST(TopicRewrite, KeepsIndexesAndDependencyRows) {
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
        StoredTopics walk(c.before, c.develop);
        walk.act("TopicsBtn");
        for (const std::string& step : c.steps) {
            const std::string name = step.substr(step[0] == '+' ? 1 : 2);
            const std::string typed = "TopicName=" + name + " TopicPath=" + lowerCase(name) + "! ";
            if (step[0] != '+') walk.act(std::string("Topics=") + step[1]);
            walk.act(step[0] == '-' ? "DeleteBtn" : typed + (step[0] == '+' ? "CreateBtn" : "UpdateBtn"));
        }
        EXPECT_EQ(walk.act("NextBtn").front(), "Edit2");
        EXPECT_EQ(walk.state(), c.after) << c.before;
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
        StoredTopics walk(c.before, c.develop);
        walk.act("TopicOrderBtn");
        if (c.raised >= 0) walk.act("OrderOption(" + std::to_string(c.raised) + ") MoveUpBtn");
        if (c.raised >= -1) walk.act("NextBtn");
        EXPECT_EQ(walk.message(), c.failure == 0 ? "" : report(c.failure)) << c.before;
        EXPECT_EQ(walk.state(), c.after) << c.before;
    }
}

TEST(Dependencies, OfAStoredProductGoByIndexAndAreSavedByRow) {
    StoredTopics walk("T A=a B=b C=c; I C=0 A=2 B=1; M 2=0 0=1_2 1=", true);
    walk.act("DependenciesBtn DependsList=1 NextBtn");
    EXPECT_EQ(walk.state(), "T A=a B=b C=c; A; I C=2 A=0 B=1; M 2=0 0=1_2 1=");
    EXPECT_TRUE(walk.pages.create9.Edit);

    const std::vector<std::pair<std::string, int>> fatal{
        {"T A=a; I A=0", 13}, {"T A=a; M x=0", 13}, {"T A=a; M 2=0", 9}, {"T A=a; M 40000=0", 6}, {"M 0=", 9}};
    for (const auto& [before, failure] : fatal) {
        EXPECT_EQ(StoredTopics(before, true).act("DependenciesBtn").message(), report(failure)) << before;
    }
    StoredTopics one("T A=a; I A=4; M 0=0", true);
    one.act("DependenciesBtn NextBtn");
    EXPECT_EQ(one.state(), "T A=a; A; I A=0; M 0=");  // a single Topic depends on none
}

TEST(EditMode, OnlyAnInstalledProductAloneHasAddedTopics) {
    StoredTopics installed(mixed, false);
    const std::string standard =
        "Confirm Deletion: This topic is part of the standard installation set for this product. If you delete it, you "
        "will not be able to recreate this topic, except with a reinstallation of the product. Are you sure you would "
        "like to continue?";
    installed.act("TopicsBtn");
    EXPECT_EQ(installed.pages.create8.Topics.text() + installed.pages.create8.TopicName.text(), "Y");
    EXPECT_EQ(installed.act("Topics=1 DeleteBtn").message(), standard);
    EXPECT_EQ(installed.act("Topics=2 DeleteBtn").message(),
              "Confirm Deletion: Are you sure you want to delete this topic?");
    EXPECT_EQ(installed.act("Topics=2 DeleteBtn").message(), standard);  // the one behind now counts as standard

    StoredTopics beside(mixed, false);
    beside.put("Toolkit\\Products", "D", "d");
    beside.pages.productReg.GetProducts();
    EXPECT_EQ(beside.act("TopicsBtn").pages.create8.i,
              3);  // with any develop Product known, the added ones stay unread
}

// Each group is opened twice: the first loading of a path turns on the switches of its section.
TEST(EditMode, EveryOptionIsLoadedAndSavedByItsGroupAlone) {
    const std::vector<ToldOption>& options = toldOptions();
    for (unsigned run = 0; run < 7; ++run) {
        Walk walk;
        walk.start().createProduct("K");
        for (const ToldOption& option : options) walk.put("Toolkit\\K\\Options", option.name, option.content(run));
        walk.editProduct();
        std::map<std::string, unsigned> saved;  // by page: how often
        for (const char* button :
             {"ProductSettingsBtn", "CoverPagesBtn", "ContentSummaryBtn", "TableOfContentsBtn", "ConclusionBtn",
              "UserDefinedFieldsBtn", "SmartFieldsBtn", "MiscellaneousSettingsBtn"}) {
            for (unsigned visit = 0; visit < 2; ++visit) {
                for (walk.act(button); walk.front() != "Edit2"; walk.act("NextBtn")) {
                    const std::string page = walk.front();
                    const bool isSection = page == "Create5" || page == "Create6" || page == "Create7";
                    for (const ToldOption& o : options) {
                        if (o.page != page || page == "Create19") continue;  // SmartFields do not read theirs
                        const bool turnedOn = isSection && visit == 0 && o.kind == "flag";
                        const bool unread = o.name == "DefaultCoverPage";
                        EXPECT_EQ(walk.text(page, o.control), turnedOn ? "1"
                                                              : unread ? "0"
                                                                       : o.content(run + visit))
                            << o.name << ' ' << visit;
                    }
                    walk.setOptions(run + visit + 1, page);
                    ++saved[page];
                }
                for (const ToldOption& o : options) {
                    EXPECT_EQ(walk.pages.settings.GetSetting(application, "Toolkit\\K\\Options", o.name, ""),
                              o.content(run + saved[o.page]))
                        << o.name;
                }
            }
        }
    }
}

TEST(EditMode, SmartFieldsAreNumberedAnewAndTheirDefaultIsNotRead) {
    Walk walk;
    walk.start().createProduct("K");
    for (const char* n : {"1", "2", "3"})
        walk.put("Toolkit\\K\\SmartFields", std::string("SmartField") + n, std::string("<!") + n + "!>");
    walk.editProduct().act("SmartFieldsBtn");
    EXPECT_EQ(walk.text("Create19", "SmartFieldsDefault") + walk.text("Create19", "SmartFieldText"), "1");
    walk.act("SmartFields=1 DeleteBtn SmartFieldText=4 CreateBtn NextBtn");
    EXPECT_EQ(walk.tree("Toolkit\\K\\SmartFields"),
              "[Toolkit\\K\\SmartFields]\nSmartField1=<!1!>\nSmartField2=<!3!>\nSmartField3=<!4!>\n");
    EXPECT_TRUE(walk.tree("Toolkit\\K\\Options").ends_with("DefaultSmartFields=1\n"));
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
        EXPECT_EQ(walk.editProduct().act(c.button).message(), c.failure == 0 ? "" : report(c.failure))
            << c.value << '=' << c.text;
    }
}

TEST(EditMode, ARenameClearsTheProductKeyBox) {
    Walk walk;
    walk.start().createProduct("Manual").editProduct().act("ProductSettingsBtn");
    EXPECT_FALSE(walk.pages.create2.ProductKey.enabled());
    walk.act("ProductName=Guide DefaultCourseName=Title NextBtn").message();
    EXPECT_EQ(walk.tree("Toolkit\\Products"), "[Toolkit\\Products]\nGuide=Manual\n");
    EXPECT_TRUE(walk.tree("Toolkit\\Manual\\Options").ends_with("DefaultCourseName=Title\n"));
    EXPECT_EQ(walk.act("ProductSettingsBtn NextBtn").message(),
              "Invalid Product Key: Please enter a Product key for the Product settings to be stored under.");
    walk.user.close().press("NextBtn");
    walk.act("CreateImg NextBtn");
    EXPECT_EQ(walk.text("Create2", "Label1"), "Create A Product Wizard");
    EXPECT_TRUE(walk.pages.create2.ProductKey.enabled());
}

TEST(Export, IsWrittenFromTheStoreInItsOrder) {
    Walk walk;
    walk.put("Products", "Old", "K");
    walk.put("K", "CreationDate", "then");
    for (const char* section : {"K\\Dependencies\\IndexTable", "K\\Topics"}) walk.put(section, "A", "C:\\a");
    walk.put("K\\Dependencies\\Matrix", "0", "");
    walk.put("K\\Toolkit\\Topics", "X", "\\\\S\\x");
    for (const char* name : {"ShowTOC", "tocpath", "TOCPath", "Other"}) walk.put("K\\Options", name, "a\\b");
    walk.start().editProduct().act("ExportSettingsBtn").user.type("SettingsPath", walk.path("old.kls"));
    EXPECT_EQ(walk.act("NextBtn").front(), "Edit2");
    EXPECT_FALSE(walk.pages.create18.Edit);
    EXPECT_EQ(walk.file("old.kls"), expected("old.kls"));
}

TEST(Deletion, LeavesWhatItDoesNotName) {
    Walk walk;
    walk.put("Products", "Old", "K");
    walk.put("K\\Toolkit\\Topics", "X", "x");
    walk.put("K\\Options", "ShowTOC", "1");
    walk.start().createProduct("Manual");
    walk.act("DeleteImg ProductList=1 NextBtn");
    EXPECT_EQ(walk.text("Delete2", "DeleteProductTxt"), "Manual");
    walk.act("BackBtn NextBtn NextBtn");
    EXPECT_EQ(walk.tree("Toolkit"), "[Toolkit]\n[Toolkit\\Products]\n");
    walk.act("DeleteImg NextBtn NextBtn").message();
    EXPECT_EQ(walk.tree("K"), "[K]\n[K\\Toolkit]\n[K\\Toolkit\\Topics]\nX=x\n");
    EXPECT_NE(walk.act("DeleteImg").message().find("before you use the Delete option."), std::string::npos);
}

TEST(ImportFile, TakesTopicsUntilALineHasNoColon) {
    Walk walk("Create8");
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
