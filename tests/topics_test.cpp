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

// A walk with that many Topics "a", "b" ... at the page behind the Topics.
struct TopicWalk : Walk {
    explicit TopicWalk(int count) : Walk("Create8") {
        for (char name = 'a'; name < 'a' + count; ++name) {
            act("TopicName=" + std::string(1, name) + " TopicPath=" + name + ".doc CreateBtn");
        }
        act("NextBtn");
    }
};

TEST(Topics, CreateUpdateAndDeleteLeaveStaleElements) {
    Walk walk("Create8");
    Create8& page = walk.pages.create8;
    EXPECT_EQ(walk.act("CreateBtn").message(), "Empty Topic Name: You have not entered a name for your topic.");
    EXPECT_EQ(walk.act("TopicName=_ CreateBtn").message(),
              "Empty Topic Path: You have not entered a path for your topic.");
    walk.act("UpdateBtn");  // no rows: nothing
    for (const char* topic : {"a TopicPath=1", "a TopicPath=2", "c TopicPath=3"}) {
        walk.act(std::string("TopicName=") + topic + " CreateBtn");
        EXPECT_EQ(page.TopicName.text() + page.TopicPath.text(), "");
    }
    EXPECT_EQ(page.TopicNames.count(), 4u);
    EXPECT_EQ(page.Topics.listIndex(), 2);
    walk.act("Topics=1");
    EXPECT_EQ(page.TopicName.text() + page.TopicPath.text(), "a2");
    walk.act("TopicName= TopicPath= UpdateBtn");  // taken untested
    EXPECT_EQ(page.Topics.rows(), (std::vector<std::string>{"a", "", "c"}));
    EXPECT_EQ(page.Topics.listIndex(), 1);

    walk.windows.answers = {Answer::cancel};
    EXPECT_EQ(walk.act("Topics=0 DeleteBtn").message(),
              "Confirm Deletion: Are you sure you want to delete this topic?");
    EXPECT_EQ(page.TopicName.text() + std::to_string(page.i), "3");
    walk.act("DeleteBtn");
    EXPECT_EQ(page.i, 2);
    EXPECT_EQ(page.TopicNames.at(0) + page.TopicNames.at(1) + page.TopicNames.at(2),
              "cc");  // stale text behind the first
    EXPECT_EQ(page.TopicPaths.at(0) + page.TopicName.text(), "3");
    EXPECT_EQ(walk.act("DeleteBtn*3").message(),
              "Vrix 3.0 Administrative Toolkit: Run-time error '5':\r\n\r\nInvalid procedure call or argument");
}

TEST(TopicOrder, TurnsPagesOfSix) {
    for (const auto& [count, firstPage] : std::vector<std::pair<int, std::string>>{
             {2, "*a b 1/1"}, {6, "*a b c d e f 1/1"}, {7, "*a b c d e f 1/2"}, {13, "*a b c d e f 1/3"}}) {
        TopicWalk walk(count);
        const Create20& page = walk.pages.create20;
        const auto faces = [&] {
            const auto off = ImageButton::Face::disabled;
            return std::to_string(page.PageDownBtn.face() == off) + std::to_string(page.PageUpBtn.face() == off);
        };
        EXPECT_EQ(shown(page), firstPage);
        EXPECT_EQ(faces(), count > 6 ? "10" : "11");
        walk.act("PageDownBtn PageUpBtn");
        EXPECT_EQ(faces(), count > 12 ? "00" : count > 6 ? "01" : "11");
        walk.act("PageUpBtn*2");
        EXPECT_EQ(page.OrderCurrentView, (count + 5) / 6);
        walk.act("PageDownBtn*3");
        EXPECT_EQ(shown(page), firstPage);
    }
}

TEST(TopicOrder, FollowsTheMovedTopicAcrossPages) {
    TopicWalk walk(13);
    const std::vector<std::pair<std::string, std::string>> moves{
        {"MoveDownBtn", "*a b c d e f 1/3"},  // the first has no neighbour before it
        {"OrderOption(5) MoveUpBtn", "*f h i j k l 2/3"},
        {"MoveUpBtn", "h *f i j k l 2/3"},
        {"MoveUpBtn MoveDownBtn", "h *f i j k l 2/3"},
        {"MoveDownBtn MoveDownBtn", "a b c d e *f 1/3"},
        {"MoveDownBtn MoveUpBtn", "a b c d e *f 1/3"},
        {"PageUpBtn PageUpBtn MoveUpBtn", "*m 3/3"},  // the last stays and is chosen
        {"MoveDownBtn", "g h i j k *m 2/3"}};
    for (const auto& [words, order] : moves) {
        walk.act(words);
        EXPECT_EQ(shown(walk.pages.create20), order) << words;
    }
    walk.act("NextBtn");
    EXPECT_EQ(walk.pages.create8.TopicNames.count(), 13u);  // no spare element
    EXPECT_EQ(walk.pages.create8.TopicNames.at(12) + walk.pages.create8.TopicPaths.at(12), "ll.doc");
    EXPECT_EQ(walk.pages.create8.Topics.rows()[11], "l");  // the list of the Topics page keeps its old order
}

TEST(TopicOrder, CaptionsDoubleTheAmpersand) {
    EXPECT_EQ(TopicOrderModule::doubleAmpersands("R&D && &"), "R&&D &&&& &&");
    Walk walk("Create8");
    walk.act("TopicName=R&D TopicPath=r CreateBtn TopicName=b TopicPath=b CreateBtn NextBtn");
    EXPECT_EQ(shown(walk.pages.create20), "*R&&D b 1/1");
    EXPECT_EQ(walk.pages.topicOrderModule.OrderTable.names.at(0), "R&D");
}

TEST(Dependencies, AreTheMarkedRowsInListOrder) {
    TopicWalk walk(4);
    Create9& page = walk.act("NextBtn").pages.create9;
    EXPECT_EQ(page.Topics.text() + page.DependsList.rows()[0].text, "ab");
    EXPECT_EQ(page.Topics.count() * 10 + page.DependsList.count(), 43);
    walk.act("Topics=2 DependsList=2 DependsList=0 DependsList=1");
    EXPECT_EQ(page.Depends.at(2), "0 1 3");
    walk.act("DependsList=-1 Topics=0 Topics=2");
    EXPECT_EQ(page.Depends.at(2), "0 3");
    EXPECT_TRUE(page.DependsList.rows()[2].marked && !page.DependsList.rows()[1].marked);

    // Numbers without a row mark the row of the number before once more, at the start the first row.
    const std::vector<std::pair<std::string, std::string>> rows{
        {"7", "1"}, {"1 7", "1"}, {"3 7 1", "1 3"}, {"0", "1"}, {"x 2", "1 2"}, {"", ""}, {" 2", "1 2"}, {"02", "1"}};
    for (const auto& [stored, rebuilt] : rows) {
        page.Depends.at(0) = stored;
        walk.act("Topics=0");
        EXPECT_EQ(page.Depends.at(0), rebuilt) << '"' << stored << '"';
    }
    walk.act("BackBtn NextBtn");
    EXPECT_EQ(page.Depends.at(2), "");  // forward again clears all marks
}

}  // namespace
}  // namespace vrix
