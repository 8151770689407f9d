#include <memory>
#include <random>
#include <utility>

#include "forms/event.h"
#include "walk.h"

namespace vrix {
namespace {

// A user who does anything that the windows allow, on a store that lasts over many runs of the program. After each
// gesture the promises of the pages are checked; a failure that ends the program starts the next run.
class RandomUser {
public:
    explicit RandomUser(unsigned seed) : random_(seed) { begin(); }

    int finished = 0;
    int deleted = 0;
    int exported = 0;

    void gesture() {
        if (walk_->windows.ended) begin();
        Form& form = walk_->user.form();
        std::vector<Control*> reachable;
        for (Control* control : form.controls()) {
            if (control->visible() && control->enabled() && takesInput(*control)) reachable.push_back(control);
        }
        Control* next = form.find("NextBtn");  // forwards more often than anything else
        Control& target = next != nullptr && pick(2) == 0 ? *next : *reachable[pick(reachable.size())];
        const bool writes = mayWrite(form, target);
        walk_->windows.messages.clear();
        walk_->windows.answers = {pick(4) == 0 ? Answer::cancel : Answer::ok};
        walk_->dialog.answers = {pick(3) == 0 ? std::nullopt : std::optional(walk_->path("f" + text()))};
        act(form.name(), target);
        SCOPED_TRACE(form.name() + '.' + target.name());
        const std::string before = std::exchange(tree_, walk_->tree());
        EXPECT_TRUE(writes || tree_ == before);
        check();
        if (!walk_->windows.ended && target.name() == "NextBtn" && !walk_->windows.messages.empty())
            satisfy(form.name());
        finished += form.name() == "Create18" && tree_ != before;
        deleted += form.name() == "Delete2" && tree_ != before;
    }

private:
    void begin() {
        walk_ = walk_ ? std::make_unique<Walk>(walk_->stored) : std::make_unique<Walk>();
        walk_->start();
        walk_->put("Products", "Installed", "I");
        walk_->put("I\\Topics", "A", "C:\\a.doc");
        walk_->put("I\\Toolkit\\Topics", "X", "x.doc");
        tree_ = walk_->tree();
    }
    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
    std::string text() {
        static const std::vector<std::string> texts{"",         "A",      "B",   "b",     "x\\y",
                                                    "\\\\s\\t", "%DOCS%", "R&D", "\"q\"", "7"};
        return texts[pick(texts.size())];
    }
    static bool takesInput(const Control& control) {
        return control.kind() != ControlKind::label && control.kind() != ControlKind::frame &&
               control.kind() != ControlKind::picture && control.kind() != ControlKind::buttonLabel;
    }
    // Only these may change the store: the Finish of a new Product, a deletion, and Next while a page is in edit mode.
    bool mayWrite(const Form& form, const Control& target) {
        if (target.name() != "NextBtn") return false;
        return form.name() == "Create18" || form.name() == "Delete2" ||
               walk_->text(form.name(), "Label1") == "Edit A Product";
    }
    // Gives a page what its message asked for.
    void satisfy(const std::string& form) {
        HeadlessUser& user = walk_->user;
        if (form == "Create2" && !walk_->pages.create2.Edit)
            user.type("ProductName", "N" + text()).type("ProductKey", "K" + std::to_string(pick(3)));
        if (form == "Create8") user.type("TopicName", "T" + text()).type("TopicPath", "p" + text()).press("CreateBtn");
        if (form != "Create3") return;
        for (const std::string n : {"1", "2", "3"})
            user.type("CoverPage" + n, "c" + n).type("CoverPage" + n + "Name", n);
    }
    void act(const std::string& form, Control& target) {
        HeadlessUser& user = walk_->user.at(form);
        const std::string name = target.name();
        switch (target.kind()) {
            case ControlKind::taskPicture: user.pressTask(name, pick(5) != 0); break;
            case ControlKind::imageButton:
                if ((name == "ExitBtn" || name == "BackBtn") && pick(12) != 0) break;
                user.press(name);
                break;
            case ControlKind::textBox: user.type(name, name == "SettingsPath" ? walk_->path("out.kls") : text()); break;
            case ControlKind::checkBox: user.check(name, pick(2) == 0); break;
            case ControlKind::optionButton: user.choose(name); break;
            case ControlKind::comboBox: {
                const auto& rows = static_cast<ComboBox&>(target).rows();
                if (!rows.empty()) user.choose(name, static_cast<int>(pick(rows.size())));
                break;
            }
            case ControlKind::markList: {
                const int rows = static_cast<MarkList&>(target).count();
                if (rows > 0) user.mark(name, static_cast<int>(pick(static_cast<std::size_t>(rows))), pick(2) == 0);
                break;
            }
            default: break;
        }
    }
    void check() {
        if (walk_->windows.ended) {
            const bool byExit = walk_->windows.messages.empty();
            EXPECT_TRUE(byExit || walk_->windows.messages.back().text.starts_with("Run-time error '"));
            return;
        }
        int live = 0;
        for (const Form* form : walk_->windows.visibleForms()) live += form->enabled();
        const bool leftOpen = walk_->pages.create17.visible();
        EXPECT_TRUE(live == 1 || (leftOpen && live == 2)) << live;
        const Create8& topics = walk_->pages.create8;
        EXPECT_GE(static_cast<int>(topics.TopicNames.count()), topics.i);
        const auto& numbers = walk_->pages.topicOrderModule.OrderTable.numbers;
        for (std::size_t n = 0; n < numbers.size(); ++n) EXPECT_EQ(numbers[n], static_cast<int>(n));
        const Create19& fields = walk_->pages.create19;
        if (fields.loaded()) {
            EXPECT_GT(static_cast<int>(walk_->pages.smartFieldModule.SmartFieldList.count()),
                      fields.SmartFieldCount - 1);
        }
        const std::string file = walk_->file("out.kls");
        exported += !file.empty();
        EXPECT_TRUE(file.empty() || (file.starts_with("REGEDIT4\r\n\r\n[") && file.ends_with("\r\n\r\n\r\n")));
        std::filesystem::remove(walk_->path("out.kls"));
    }

    std::mt19937 random_;
    std::string tree_;
    std::unique_ptr<Walk> walk_;
};

TEST(RandomWalk, KeepsThePromisesOfThePages) {
    int finished = 0;
    int deleted = 0;
    int exported = 0;
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RandomUser user(seed);
        for (int step = 0; step < 1200 && !testing::Test::HasFailure(); ++step) user.gesture();
        finished += user.finished;
        deleted += user.deleted;
        exported += user.exported;
    }
    // The walk is worth nothing if it never comes anywhere.
    EXPECT_GT(finished, 0);
    EXPECT_GT(deleted, 0);
    EXPECT_GT(exported, 0);
}

}  // namespace
}  // namespace vrix
