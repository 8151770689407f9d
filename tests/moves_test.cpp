#include <map>

#include "walk.h"

namespace vrix {
namespace {

// The pages of create mode in the order in which Next leads through them.
const std::vector<std::string> chain{
    "ToolkitMain", "Create1",  "Create2",  "Create3",  "Create4",  "Create5",     "Create6",  "Create7",
    "Create8",     "Create20", "Create9",  "Create10", "Create11", "Create12",    "Create13", "Create14",
    "Create15",    "Create16", "Create19", "Create17", "Create18", "ToolkitMain",
};

TEST(Moves, EveryPageOfTheCreateChainLeadsWhereItShould) {
    for (std::size_t at = 1; at + 1 < chain.size(); ++at) {
        const std::string& page = chain[at];
        const std::string& back = chain[page == "Create17" ? at - 2 : at - 1];
        for (const auto& [button, target] : std::vector<std::pair<std::string, std::string>>{
                 {"NextBtn", chain[at + 1]}, {"BackBtn", back}, {"ExitBtn", "ToolkitMain"}}) {
            const std::string where = page + ' ' + button;
            Walk walk;
            walk.createTo(page);
            walk.fillLeast(page);
            walk.windows.formLog.clear();
            walk.user.press(button);
            EXPECT_EQ(walk.front(), target) << where;
            if (where == "Create17 ExitBtn") continue;
            auto log = walk.windows.formLog;
            if (log.size() == 4) {
                EXPECT_EQ(log.back(), target + " enabled");
                log.pop_back();
            }
            EXPECT_EQ(log, (std::vector<std::string>{page + " disabled", page + " hidden", target + " shown"}))
                << where;
            EXPECT_EQ(walk.tree().empty(), where != "Create18 NextBtn") << where;
        }
    }
}

TEST(Moves, ExitOfDocumentControlLeavesItBesideTheMainScreen) {
    Walk walk;
    walk.createTo("Create17");
    walk.windows.formLog.clear();
    walk.user.press("ExitBtn");
    EXPECT_TRUE(walk.pages.create17.visible() && walk.pages.create17.enabled());
    EXPECT_TRUE(walk.pages.toolkitMain.visible() && walk.pages.toolkitMain.enabled());
    EXPECT_FALSE(walk.pages.create16.enabled());
    walk.user.at("Create17").press("NextBtn");
    EXPECT_EQ(walk.front(), "Create18");
}

TEST(Moves, SkipsOfTopicsAndFieldOptions) {
    Walk one;
    one.createTo("Create8");
    one.user.press("NextBtn");
    EXPECT_EQ(one.message(),
              "Invalid Number Of Topics: You have not created any topics yet. Please create at least "
              "one topic before continuing");
    one.addTopic("Only", "o.doc").user.press("NextBtn");
    EXPECT_EQ(one.front(), "Create10");
    one.user.press("BackBtn");
    EXPECT_EQ(one.front(), "Create8");
    one.user.press("NextBtn").type("UserDef2", "name without a path");
    one.user.press("NextBtn").press("NextBtn").press("NextBtn").press("NextBtn");
    EXPECT_EQ(one.front(), "Create19");  // no field has a path
    one.user.press("BackBtn");
    EXPECT_EQ(one.front(), "Create16");  // all the same
    one.user.press("NextBtn").press("NextBtn").press("BackBtn");
    EXPECT_EQ(one.front(), "Create13");  // past Create19

    Walk deleted;
    deleted.createTo("Create8");
    deleted.addTopic("A", "a.doc").addTopic("B", "b.doc").user.press("DeleteBtn").press("NextBtn");
    EXPECT_EQ(deleted.front(), "Create20");  // the highest count of the visit decides
    EXPECT_EQ(deleted.pages.create8.thisTopicCount, 2);
}

TEST(Moves, ForwardsForgetsAndBackKeeps) {
    Walk walk;
    walk.createTo("Create5");
    walk.user.type("CourseBriefPath", "s.doc").press("BackBtn").press("BackBtn").press("BackBtn");
    EXPECT_EQ(walk.text("Create2", "ProductName"), "Manual");
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.text("Create3", "CoverPage1"), "");
    EXPECT_EQ(walk.text("Create5", "CourseBriefPath"), "s.doc");
    walk.fillLeast("Create3");
    walk.user.press("NextBtn").press("NextBtn");
    EXPECT_EQ(walk.text("Create5", "CourseBriefPath"), "");
}

TEST(Moves, TwoTopicsDownToNoneEndTheProgramAtTheOrderPage) {
    Walk walk;
    walk.createTo("Create8");
    walk.addTopic("A", "a").addTopic("B", "b").user.press("DeleteBtn").press("DeleteBtn").press("NextBtn");
    EXPECT_EQ(walk.message(), "Vrix 3.0 Administrative Toolkit: Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_TRUE(walk.windows.ended);
}

// The groups of edit mode: the hub's button, and the pages from the first to the one that writes.
struct Group {
    const char* button;
    std::vector<const char*> pages;
    std::function<bool&(Toolkit&)> edit;
    bool staysAfterNext = false;
};

const std::vector<Group> groups{
    {"ProductSettingsBtn", {"Create2"}, [](Toolkit& t) -> bool& { return t.create2.Edit; }, true},
    {"CoverPagesBtn", {"Create3", "Create4"}, [](Toolkit& t) -> bool& { return t.create3.Edit; }},
    {"ContentSummaryBtn", {"Create5"}, [](Toolkit& t) -> bool& { return t.create5.Edit; }},
    {"TableOfContentsBtn", {"Create6"}, [](Toolkit& t) -> bool& { return t.create6.Edit; }},
    {"ConclusionBtn", {"Create7"}, [](Toolkit& t) -> bool& { return t.create7.Edit; }},
    {"TopicsBtn", {"Create8"}, [](Toolkit& t) -> bool& { return t.create8.Edit; }},
    {"TopicOrderBtn", {"Create20"}, [](Toolkit& t) -> bool& { return t.create20.Edit; }},
    {"DependenciesBtn", {"Create9"}, [](Toolkit& t) -> bool& { return t.create9.Edit; }, true},
    {"UserDefinedFieldsBtn",
     {"Create10", "Create11", "Create12", "Create13", "Create14", "Create15", "Create16"},
     [](Toolkit& t) -> bool& { return t.create10.Edit; }},
    {"SmartFieldsBtn", {"Create19"}, [](Toolkit& t) -> bool& { return t.create19.Edit; }},
    {"MiscellaneousSettingsBtn", {"Create17"}, [](Toolkit& t) -> bool& { return t.create17.Edit; }},
    {"ExportSettingsBtn", {"Create18"}, [](Toolkit& t) -> bool& { return t.create18.Edit; }},
};

TEST(Moves, EveryGroupOfEditModeComesBackToTheHub) {
    for (const Group& group : groups) {
        for (std::size_t page = 0; page < group.pages.size(); ++page) {
            for (const std::string button : {"NextBtn", "BackBtn", "ExitBtn"}) {
                Walk walk;
                walk.start().createProduct("Manual").editProduct();
                const std::string before = walk.tree();
                walk.user.press(group.button);
                for (std::size_t n = 0; n < page; ++n) walk.user.press("NextBtn");
                ASSERT_EQ(walk.front(), group.pages[page]);
                EXPECT_EQ(walk.text(group.pages[page], "Label1"), "Edit A Product");
                walk.pages.create18.SettingsPath.setText(walk.path("x.kls"));
                walk.user.press(button);
                const bool last = page + 1 == group.pages.size();
                const bool first = page == 0;
                const bool inside = (button == "NextBtn" && !last) || (button == "BackBtn" && !first);
                const std::string where = std::string(group.pages[page]) + ' ' + button;
                const std::size_t neighbour = button == "NextBtn" ? page + 1 : page - 1;
                EXPECT_EQ(walk.front(), inside ? group.pages[neighbour] : "Edit2") << where;
                bool stays = inside || (button == "NextBtn" && group.staysAfterNext);
                stays |= where == "Create20 ExitBtn";  // it clears another page's flag instead
                EXPECT_EQ(group.edit(walk.pages), stays) << where;
                EXPECT_TRUE((button == "NextBtn" && !inside) || walk.tree() == before) << where;
            }
        }
    }
}

TEST(Moves, EditedFieldsWithoutAPathWalkOnUnsaved) {
    Walk walk;
    walk.start().createProduct("Manual").editProduct().user.press("UserDefinedFieldsBtn").type("UserDef1Path", "");
    const std::string before = walk.tree();
    for (int n = 0; n < 4; ++n) walk.user.press("NextBtn");
    EXPECT_EQ(walk.front(), "Create19");
    EXPECT_EQ(walk.text("Create19", "Label1"), "Create A Product Wizard");
    EXPECT_TRUE(walk.pages.create10.Edit);
    EXPECT_EQ(walk.tree(), before);
}

}  // namespace
}  // namespace vrix
