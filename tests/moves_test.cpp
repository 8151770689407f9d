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
            Walk walk(page);
            walk.fillLeast(page);
            walk.windows.formLog.clear();
            EXPECT_EQ(walk.act(button).front(), target) << where;
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
    Walk walk("Create17");
    walk.act("ExitBtn");
    EXPECT_TRUE(walk.pages.create17.visible() && walk.pages.create17.enabled());
    EXPECT_TRUE(walk.pages.toolkitMain.visible() && walk.pages.toolkitMain.enabled());
    EXPECT_FALSE(walk.pages.create16.enabled());
    walk.user.at("Create17").press("NextBtn");
    EXPECT_EQ(walk.front(), "Create18");
}

TEST(Moves, SkipsOfTopicsAndFieldOptions) {
    Walk one("Create8");
    EXPECT_EQ(one.act("NextBtn").message(),
              "Invalid Number Of Topics: You have not created any topics yet. Please create at least "
              "one topic before continuing");
    EXPECT_EQ(one.act("TopicName=Only TopicPath=o.doc CreateBtn NextBtn").front(), "Create10");
    EXPECT_EQ(one.act("BackBtn").front(), "Create8");
    one.act("NextBtn UserDef2=a_name_without_a_path NextBtn*4");
    EXPECT_EQ(one.front(), "Create19");                                 // no field has a path
    EXPECT_EQ(one.act("BackBtn").front(), "Create16");                  // even so
    EXPECT_EQ(one.act("NextBtn NextBtn BackBtn").front(), "Create13");  // past Create19

    Walk deleted("Create8");
    deleted.fillLeast("Create8");
    EXPECT_EQ(deleted.act("DeleteBtn NextBtn").front(), "Create20");  // the highest count of the visit decides
    EXPECT_EQ(deleted.pages.create8.thisTopicCount, 2);

    Walk none("Create8");
    none.fillLeast("Create8");
    EXPECT_EQ(none.act("DeleteBtn DeleteBtn NextBtn").message(),
              "Vrix 3.0 Administrative Toolkit: Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_TRUE(none.windows.ended);
}

TEST(Moves, NextClearsThePageThatItOpensAndBackKeepsIt) {
    Walk walk("Create5");
    walk.act("CourseBriefPath=s.doc BackBtn*3");
    EXPECT_EQ(walk.text("Create2", "ProductName"), "Manual");
    walk.act("NextBtn");
    EXPECT_EQ(walk.text("Create3", "CoverPage1"), "");
    EXPECT_EQ(walk.text("Create5", "CourseBriefPath"), "s.doc");
    walk.fillLeast("Create3");
    walk.act("NextBtn NextBtn");
    EXPECT_EQ(walk.text("Create5", "CourseBriefPath"), "");
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
                const std::string where = std::string(group.pages[page]) + ' ' + button;
                const bool last = page + 1 == group.pages.size();
                const bool first = page == 0;
                walk.act(std::string(group.button) + " NextBtn*" + std::to_string(page));
                ASSERT_EQ(walk.front(), group.pages[page]);
                EXPECT_EQ(walk.text(group.pages[page], "Label1"), "Edit A Product");
                EXPECT_EQ(walk.text(group.pages[page], "NextBtnLbl"),
                          last && walk.front() != "Create16" ? "Finish" : "Next >")
                    << where;
                walk.pages.create18.SettingsPath.setText(walk.path("x.kls"));
                walk.act(button);
                const bool inside = (button == "NextBtn" && !last) || (button == "BackBtn" && !first);
                const std::size_t neighbour = button == "NextBtn" ? page + 1 : page - 1;
                EXPECT_EQ(walk.front(), inside ? group.pages[neighbour] : "Edit2") << where;
                bool stays = inside || (button == "NextBtn" && group.staysAfterNext);
                stays |= where == "Create20 ExitBtn";  // a quirk: it clears another page's flag instead
                EXPECT_EQ(group.edit(walk.pages), stays) << where;
                EXPECT_TRUE((button == "NextBtn" && !inside) || walk.tree() == before) << where;
            }
        }
    }
}

TEST(Moves, EditedFieldsWithoutAPathAreNotSaved) {
    Walk walk;
    walk.start().createProduct("Manual").editProduct().act("UserDefinedFieldsBtn UserDef1Path=");
    const std::string before = walk.tree();
    EXPECT_EQ(walk.act("NextBtn*4").front(), "Create19");
    EXPECT_EQ(walk.text("Create19", "Label1"), "Create A Product Wizard");
    EXPECT_TRUE(walk.pages.create10.Edit);
    EXPECT_EQ(walk.tree(), before);
}

// After editing all groups the wizard is as in a newly started program, except for a box that nothing unticks.
TEST(Moves, AnEditDoesNotChangeTheWizard) {
    Walk edited;
    edited.start().createProduct("Manual").editProduct();
    edited.setOptions(6);
    for (const Group& group : groups) edited.act(group.button).act("BackBtn");
    edited.act("ExitBtn CreateImg");
    Walk fresh;
    for (fresh.start().act("CreateImg"); fresh.front() != "Create18"; fresh.act("NextBtn"), edited.act("NextBtn")) {
        ASSERT_EQ(edited.front(), fresh.front());
        for (const Control* control : fresh.user.form().controls()) {
            if (control->name() == "SmartFieldsDefault") continue;
            EXPECT_EQ(edited.text(fresh.front(), control->name()), fresh.text(fresh.front(), control->name()))
                << fresh.front() << ' ' << control->name();
        }
        fresh.fillLeast(fresh.front());
        edited.fillLeast(fresh.front());
    }
}

}  // namespace
}  // namespace vrix
