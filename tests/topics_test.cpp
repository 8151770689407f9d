#include "walk.h"

namespace vrix {
namespace {

std::string shown(const Create20& page) {
    std::string all;
    for (const OptionButton& option : page.OrderOption) {
        if (option.visible()) all += (option.chosen() ? "*" : "") + option.caption() + ' ';
    }
    return all + page.PageNum.caption();
}

void addTopics(Walk& walk, int count) {
    for (int n = 0; n < count; ++n) {
        const std::string name(1, static_cast<char>('a' + n));
        walk.addTopic(name, name + ".doc");
    }
}

TEST(Topics, CreateUpdateAndDeleteKeepTheirSlack) {
    Walk walk;
    walk.createTo("Create8");
    Create8& page = walk.pages.create8;
    walk.user.press("CreateBtn");
    EXPECT_EQ(walk.message(), "Empty Topic Name: You have not entered a name for your topic.");
    walk.user.type("TopicName", " ").press("CreateBtn");
    EXPECT_EQ(walk.message(), "Empty Topic Path: You have not entered a path for your topic.");
    walk.user.press("UpdateBtn");  // no rows: nothing
    walk.addTopic("a", "1").addTopic("a", "2").addTopic("c", "3");
    EXPECT_EQ(page.TopicNames.count(), 4u);
    walk.user.choose("Topics", 1);
    EXPECT_EQ(page.TopicName.text() + page.TopicPath.text(), "a2");
    walk.user.type("TopicName", "").type("TopicPath", "").press("UpdateBtn");  // taken untested
    EXPECT_EQ(page.Topics.rows(), (std::vector<std::string>{"a", "", "c"}));

    walk.windows.answers = {Answer::cancel};
    walk.user.choose("Topics", 0).press("DeleteBtn");
    EXPECT_EQ(walk.message(), "Confirm Deletion: Are you sure you want to delete this topic?");
    EXPECT_EQ(page.i, 3);
    walk.user.press("DeleteBtn");
    EXPECT_EQ(page.i, 2);
    EXPECT_EQ(page.TopicNames.at(0) + page.TopicNames.at(1) + page.TopicNames.at(2), "cc");  // stale behind the first
    EXPECT_EQ(page.TopicName.text(), "");
    walk.user.press("DeleteBtn").press("DeleteBtn").press("DeleteBtn");
    EXPECT_EQ(walk.message(),
              "Vrix 3.0 Administrative Toolkit: Run-time error '5':\r\n\r\nInvalid procedure call or argument");
}

TEST(TopicOrder, TurnsPagesOfSix) {
    for (const auto& [count, firstPage] : std::vector<std::pair<int, std::string>>{
             {2, "*a b 1/1"}, {6, "*a b c d e f 1/1"}, {7, "*a b c d e f 1/2"}, {13, "*a b c d e f 1/3"}}) {
        Walk walk;
        walk.createTo("Create8");
        addTopics(walk, count);
        walk.user.press("NextBtn");
        const Create20& page = walk.pages.create20;
        EXPECT_EQ(shown(page), firstPage);
        EXPECT_EQ(page.PageDownBtn.face(), ImageButton::Face::disabled);
        walk.user.press("PageDownBtn").press("PageUpBtn").press("PageUpBtn").press("PageUpBtn");
        EXPECT_EQ(page.PageUpBtn.face(), ImageButton::Face::disabled);
        EXPECT_EQ(page.OrderCurrentView, (count + 5) / 6);
    }
}

TEST(TopicOrder, FollowsTheMovedTopicAcrossPages) {
    Walk walk;
    walk.createTo("Create8");
    addTopics(walk, 13);
    walk.user.press("NextBtn");
    const Create20& page = walk.pages.create20;
    walk.user.press("MoveDownBtn");  // the first has no neighbour before it
    EXPECT_EQ(shown(page), "*a b c d e f 1/3");
    walk.user.choose("OrderOption(5)").press("MoveUpBtn");
    EXPECT_EQ(shown(page), "*f h i j k l 2/3");
    walk.user.press("MoveUpBtn");
    EXPECT_EQ(shown(page), "h *f i j k l 2/3");
    walk.user.press("MoveDownBtn").press("MoveDownBtn");
    EXPECT_EQ(shown(page), "a b c d e *f 1/3");
    walk.user.press("PageUpBtn").press("PageUpBtn").press("MoveUpBtn");  // the last stays and is chosen
    EXPECT_EQ(shown(page), "*m 3/3");
    walk.user.press("MoveDownBtn");
    EXPECT_EQ(shown(page), "g h i j k *m 2/3");
    walk.user.press("NextBtn");
    EXPECT_EQ(walk.pages.create8.TopicNames.count(), 13u);
    EXPECT_EQ(walk.pages.create8.TopicNames.at(12), "l");
    EXPECT_EQ(walk.pages.create8.Topics.rows()[11], "l");  // the list of the Topics page keeps its old order
}

TEST(TopicOrder, CaptionsDoubleTheAmpersand) {
    EXPECT_EQ(TopicOrderModule::doubleAmpersands("R&D && &"), "R&&D &&&& &&");
    Walk walk;
    walk.createTo("Create8");
    walk.addTopic("R&D", "r").addTopic("b", "b").user.press("NextBtn");
    EXPECT_EQ(shown(walk.pages.create20), "*R&&D b 1/1");
    EXPECT_EQ(walk.pages.topicOrderModule.OrderTable.names.at(0), "R&D");
}

TEST(Dependencies, AreTheMarkedRowsInListOrder) {
    Walk walk;
    walk.createTo("Create8");
    addTopics(walk, 4);
    walk.user.press("NextBtn").press("NextBtn");
    Create9& page = walk.pages.create9;
    ASSERT_EQ(page.DependsList.rows()[0].itemData, 1);
    walk.user.choose("Topics", 2).mark("DependsList", 2).mark("DependsList", 0).mark("DependsList", 1);
    EXPECT_EQ(page.Depends.at(2), "0 1 3");
    walk.user.mark("DependsList", 1, false).choose("Topics", 0).choose("Topics", 2);
    EXPECT_EQ(page.Depends.at(2), "0 3");
    EXPECT_TRUE(page.DependsList.rows()[2].marked);

    // Numbers without a row mark the row of the number before once more, at the start the first row.
    const std::vector<std::pair<std::string, std::string>> rows{
        {"7", "1"}, {"1 7", "1"}, {"3 7 1", "1 3"}, {"0", "1"}, {"x 2", "1 2"}, {"", ""}, {" 2", "1 2"}, {"02", "1"}};
    for (const auto& [stored, rebuilt] : rows) {
        page.Depends.at(0) = stored;
        walk.user.choose("Topics", 0);
        EXPECT_EQ(page.Depends.at(0), rebuilt) << '"' << stored << '"';
    }
    walk.user.press("BackBtn").press("NextBtn");
    EXPECT_EQ(page.Depends.at(2), "");  // forward again drops all marks
}

}  // namespace
}  // namespace vrix
