#include "common/number.h"
#include "common/runtime_failure.h"
#include "walk.h"

namespace vrix {
namespace {

int failureOf(const std::function<void()>& statement) { return static_cast<int>(ignoring(statement)); }

TEST(Numbers, TextBecomesA16BitNumberOrItsFailure) {
    const std::vector<std::pair<std::string, int>> accepted{
        {"0", 0},   {" 12 ", 12}, {"-1", -1},   {"+7", 7},          {"0.5", 0},         {"1.5", 2},
        {"2.5", 2}, {"2.51", 3},  {"-0.5", 0},  {"-1.5", -2},       {".5", 0},          {"3.", 3},
        {"007", 7}, {"2.49", 2},  {"3.500", 4}, {"32767.4", 32767}, {"-32768", -32768}, {"-32768.5", -32768},
    };
    for (const auto& [text, value] : accepted) EXPECT_EQ(toInt16(text), value) << '"' << text << '"';
    for (const char* text : {"", " ", "x", "1x", "1 2", "--1", "-", ".", "1.2.3", "0x1", "1e2", "\xA0"}) {
        EXPECT_EQ(failureOf([&] { toInt16(text); }), 13) << '"' << text << '"';
    }
    for (const char* text : {"32768", "32767.5", "-32769", "99999999999999999999"}) {
        EXPECT_EQ(failureOf([&] { toInt16(text); }), 6) << text;
    }
    EXPECT_EQ(failureOf([] { add16(32767, 1); }), 6);
    const std::vector<std::pair<std::int16_t, int>> halves{{0, 0}, {1, 0}, {2, 1},        {3, 2},
                                                           {5, 2}, {7, 4}, {32767, 16384}};
    for (const auto& [count, half] : halves) EXPECT_EQ(halved(count), half) << count;
}

// A test form with most kinds of controls.
class Bench : public Form {
public:
    explicit Bench(Screen& screen) : Form(screen, "Bench", "Bench", {200, 200}) {}
    void closed() override {}
    ImageButton NextBtn{*this, "NextBtn", {0, 0, 80, 28}, "Next >"};
    ImageButton BackBtn{*this, "BackBtn", {90, 0, 80, 28}, "< Back"};
    ComboBox List{*this, "List", {0, 40, 100, 24}};
    CheckBox Box{*this, "Box", {0, 70, 100, 22}, "Box"};
    TextBox Text{*this, "Text", {-50, -40, 20, 10}};
    Frame Inner{*this, "Inner", {5, 100, -5, -6}};
    OptionButton One{Inner, "One", {0, 0, 0, 20}};
    OptionButton Other{Inner, "Other", {7, 20, 60, 20}};
    MarkList Marks{*this, "Marks", {0, 0, 10, 10}};
    TaskPicture Task{*this, "Task", {0, 0, 10, 10}, Art::logo, "Task"};
    Label Words{*this, "Words", {0, 0, 10, 10}, "Words"};
};

TEST(Controls, AreLaidOutByTheirPlace) {
    HeadlessWindows windows;
    Bench form(windows);
    const std::vector<std::tuple<Control*, int, int, int, int>> places{{&form.Text, 150, 160, 20, 10},
                                                                       {&form.Inner, 5, 100, 190, 94},
                                                                       {&form.One, 5, 100, 190, 20},
                                                                       {&form.Other, 12, 120, 60, 20}};
    for (const auto& [control, left, top, width, height] : places) {
        const Bounds b = control->bounds();
        EXPECT_EQ(std::tie(b.left, b.top, b.width, b.height), std::tie(left, top, width, height)) << control->name();
    }
    form.Inner.setLeft(9);
    EXPECT_EQ(form.Inner.bounds().width * 1'000 + form.Other.bounds().left, 190'016);
}

TEST(Controls, TellTheScreenOfEachChangeAndOfNothingElse) {
    HeadlessWindows windows;
    Bench form(windows);
    const std::vector<std::pair<int, std::function<void()>>> gestures{
        {1, [&] { form.NextBtn.setDisabled(true); }},
        {0, [&] { form.NextBtn.setDisabled(true); }},
        {1, [&] { form.NextBtn.label.setCaption("Finish"); }},
        {1, [&] { form.Words.setCaption("New"); }},
        {1, [&] { form.Box.setValue(1); }},
        {1, [&] { form.Box.setCaption("New"); }},
        {1, [&] { form.Box.setVisible(false); }},
        {1, [&] { form.Box.setEnabled(false); }},
        {1, [&] { form.Box.setLeft(5); }},
        {1, [&] { form.Text.setText("a"); }},
        {0, [&] { form.Text.setText("a"); }},
        {1, [&] { form.List.addItem("a"); }},
        {1, [&] { form.List.setListIndex(0); }},
        {0, [&] { form.List.setListIndex(0); }},
        {1, [&] { form.List.removeItem(0); }},
        {1, [&] { form.List.clear(); }},
        {1, [&] { form.Marks.addItem("a", 0); }},
        {1, [&] { form.Marks.userMarks(0, true); }},
        {1, [&] { form.Marks.mark({0}); }},
        {1, [&] { form.Marks.clear(); }},
        {1, [&] { form.One.choose(); }},
        {0, [&] { form.One.choose(); }},
        {2, [&] { form.Other.choose(); }},
        {1, [&] { form.Other.setCaption("New"); }},
        {1, [&] { form.Task.mouseDown(); }},
        {1, [&] { form.Task.setPressed(false); }},
    };
    for (std::size_t n = 0; n < gestures.size(); ++n) {
        windows.changes = 0;
        gestures[n].second();
        EXPECT_EQ(windows.changes, gestures[n].first) << n;
    }
}

TEST(HeadlessUser, DoesOnlyWhatAUserCould) {
    Walk walk("Create18");
    const auto refused = [&](const std::string& words) {
        try {
            walk.act(words);
            return false;
        } catch (const std::logic_error&) {
            return true;
        }
    };
    walk.pages.create18.Browse1Btn.setVisible(false);
    walk.pages.create18.SettingsPath.setEnabled(false);
    for (const char* words : {"None", "Browse1Btn", "SettingsPath=x", "Label1"}) EXPECT_TRUE(refused(words)) << words;
    EXPECT_THROW(walk.user.at("Create17").form(), std::logic_error);
    walk.user.at("");
    walk.act("ExitBtn ExitBtn");
    EXPECT_TRUE(refused("CreateImg"));
}

TEST(ImageButtons, ShowOneFaceForHoverPressAndRelease) {
    HeadlessWindows windows;
    Bench form(windows);
    ImageButton& next = form.NextBtn;
    ImageButton& back = form.BackBtn;
    int actions = 0;
    next.action = [&] { ++actions; };
    // Behind each gesture the faces of both, "n"ormal, "h"over, "p"ressed or "d"isabled, and how often Next acted.
    const std::vector<std::pair<std::string, std::function<void()>>> gestures{
        {"hn0", [&] { next.moveOverPicture(false); }},
        {"nh0", [&] { back.moveOverLabel(); }},  // the neighbour's hover ended its own
        {"nn0", [&] { form.mouseMove(); }},
        {"nn0", [&] { back.moveOverPicture(true); }},  // held, coming from elsewhere: nothing over the picture
        {"nh0", [&] { back.moveOverLabel(); }},
        {"ph0", [&] { next.mouseDown(); }},
        {"ph0", [&] { next.moveOverLabel(); }},
        {"hh1", [&] { next.mouseUp(); }},
        {"dh1", [&] { next.setDisabled(true); }},
        {"dh1", [&] { next.mouseDown(), next.moveOverPicture(false), next.moveOverLabel(), next.mouseUp(); }},
        {"dn1", [&] { form.resetButtons(); }},
    };
    for (std::size_t n = 0; n < gestures.size(); ++n) {
        gestures[n].second();
        std::string faces;
        for (const ImageButton* button : {&next, &back}) faces += "nhpd"[static_cast<int>(button->face())];
        EXPECT_EQ(faces + std::to_string(actions), gestures[n].first) << n;
    }
}

TEST(Lists, RaiseTheirClickWhenTheCurrentRowChanges) {
    HeadlessWindows windows;
    Bench form(windows);
    int clicks = 0;
    form.List.onClick = [&] { ++clicks; };
    for (const char* row : {"a", "b", "c"}) form.List.addItem(row);
    EXPECT_EQ(form.List.listIndex(), -1);
    form.List.setListIndex(2);
    form.List.setListIndex(2);
    EXPECT_EQ(clicks, 1);
    form.List.userChooses(2);  // the user's choice of the current row counts
    EXPECT_EQ(clicks, 2);
    form.List.removeItem(0);
    EXPECT_EQ(form.List.text(), "c");
    form.List.removeItem(1);
    EXPECT_EQ(form.List.listIndex(), -1);
    EXPECT_EQ(form.List.text(), "");
    EXPECT_EQ(failureOf([&] { form.List.setListIndex(1); }), 380);
    EXPECT_EQ(failureOf([&] { form.List.removeItem(-1); }), 5);
    EXPECT_EQ(failureOf([&] { form.List.restore("-1"); }), 380);
    EXPECT_EQ(failureOf([&] { form.Box.setValue(2); }), 380);
    form.List.clear();
    EXPECT_EQ(clicks, 2);
}

}  // namespace
}  // namespace vrix
