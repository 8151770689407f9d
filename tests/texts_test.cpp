#include <algorithm>

#include "expected.h"
#include "forms/event.h"
#include "walk.h"

namespace vrix {
namespace {

using Lines = std::vector<std::string>;

template <class... Kinds>
std::string captionOf(const Control& control) {
    std::string caption;
    const auto take = [&](const auto* found) {
        if (found != nullptr) caption = found->caption();
    };
    (take(dynamic_cast<const Kinds*>(&control)), ...);
    return caption;
}

// What a control shows: its caption or its rows, its tip, its key, what its file dialog asks.
std::string shownBy(Walk& walk, const Control& control) {
    std::string text = captionOf<Label, CheckBox, OptionButton, TaskPicture>(control);
    if (const auto* list = dynamic_cast<const ComboBox*>(&control)) {
        for (const std::string& row : list->rows()) text += "(" + row + ")";
    }
    if (const auto* button = dynamic_cast<const ImageButton*>(&control)) {
        text = button->label.caption() + (button->tip.empty() ? "" : "; " + button->tip);
    }
    if (control.accessKey() != 0) text += std::string("; Alt+") + control.accessKey();
    if (control.name().starts_with("Browse") && is<ImageButton>(control)) {
        walk.user.press(control.name());
        const FileQuestion& asked = walk.dialog.questions.back();
        text += "; " + asked.title + "; " + asked.filter + "; " + asked.defaultExtension;
        if (!asked.initialFolder.empty()) text += "; " + asked.initialFolder;
    }
    return text;
}

// All texts on the page in front, a line each.
Lines linesOfFront(Walk& walk) {
    const Form& page = walk.user.form();
    Lines lines{page.name() + ": " + page.caption()};
    for (const Control* control : page.controls()) {
        const std::string text = shownBy(walk, *control);
        if (control->visible() && !text.empty()) lines.push_back("  " + control->name() + ": " + text);
    }
    return lines;
}

std::string joined(const Lines& lines) {
    std::string all = "\n";
    for (std::string line : lines) {
        const auto sign = line.find('\xA9');
        all += (sign == std::string::npos ? line : line.replace(sign, 1, "\xC2\xA9")) + '\n';
    }
    return all;
}

TEST(Texts, PagesMatchTheExpectedTexts) {
    std::map<std::string, Lines> creating;
    std::string all = "# What each page shows when it comes up in the making of a Product with two Topics.\n";
    const auto tell = [&](Walk& walk) { all += joined(creating[walk.front()] = linesOfFront(walk)); };
    Walk walk;
    runEvent(walk.windows, [&] { walk.program.start(); });
    tell(walk);
    walk.windows.passTime();
    tell(walk);
    for (walk.act("CreateImg"); walk.front() != "Create18";) {
        tell(walk);
        const std::string here = walk.front();
        walk.fillLeast(here);
        ASSERT_NE(walk.act("NextBtn").front(), here) << walk.message();
    }
    tell(walk);
    for (const char* words : {"NextBtn EditImg", "NextBtn", "ExitBtn DeleteImg", "NextBtn"}) tell(walk.act(words));

    all += "\n# What else stands there when that Product is edited.\n";
    walk.act("ExitBtn").editProduct();
    for (const ImageButton* button : only<ImageButton>(walk.pages.edit2.Frame2.children())) {
        walk.act(button->name());
        while (walk.front() != "Edit2") {
            const std::string here = walk.front();
            Lines lines = linesOfFront(walk);
            const Lines& before = creating[here];
            const auto known = [&](const auto& line) { return std::count(before.begin(), before.end(), line) > 0; };
            lines.erase(std::remove_if(lines.begin() + 1, lines.end(), known), lines.end());
            all += joined(lines);
            if (here == "Create3" || here == "Create10") walk.fillLeast(here);  // whose boxes the dialogs emptied
            if (here == "Create18") walk.user.type("SettingsPath", walk.path("out"));
            ASSERT_NE(walk.act("NextBtn").front(), here) << walk.message();
        }
    }
    expectAsWritten("pages.txt", all);
}

TEST(Texts, MessagesMatchTheExpectedTexts) {
    std::string all;
    const auto tell = [&](const HeadlessWindows& windows) {
        for (const auto& [title, text, buttons] : windows.messages)
            all += title + (buttons == Buttons::ok ? " [OK]\n" : " [OK] [Cancel]\n") + text + "\n\n";
    };
    for (const auto& [page, words] : std::vector<std::pair<std::string, std::string>>{
             {"ToolkitMain", "EditImg DeleteImg"},
             {"Create2", "NextBtn ProductKey=K NextBtn ProductName=Taken NextBtn"},
             {"Create3", "NextBtn CoverPage2=p NextBtn CoverPage1Name=a CoverPage2Name=a NextBtn"},
             {"Create8", "NextBtn CreateBtn TopicName=a CreateBtn TopicPath=a CreateBtn DeleteBtn"},
             {"Create19", "CreateBtn DeleteBtn"},
             {"Create18", "NextBtn"}}) {
        Walk walk;
        walk.put("Taken", "CreationDate", "1/1/2026");
        page == "ToolkitMain" ? walk.start() : walk.createTo(page);
        tell(walk.act(words).windows);
    }
    Walk installed;
    installed.put("Products", "A", "K");
    installed.put("K\\Topics", "a", "a.doc");
    tell(installed.start().editProduct().act("TopicsBtn DeleteBtn").windows);
    HeadlessWindows windows;
    for (const int number : {5, 6, 9, 13, 53, 62, 70, 76, 380}) {
        runEvent(windows, [&] { throw RuntimeFailure(static_cast<FailureNumber>(number)); });
    }
    runEvent(windows, [] { throw std::runtime_error("What no page expects."); });
    tell(windows);
    std::erase(all, '\r');
    expectAsWritten("messages.txt", all);
}

}  // namespace
}  // namespace vrix
