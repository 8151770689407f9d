#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_dialog.h"
#include "platform/screen.h"

namespace vrix {

// A message box as it was shown.
struct ShownMessage {
    std::string title;
    std::string text;
    Buttons buttons;
};

// Windows without a screen. What it keeps: every message with a scripted answer, the order in which forms were shown,
// hidden, enabled and disabled, the timers that run, and the end of the program. What it leaves out: painting, focus,
// and the mouse's way from one control to the next.
class HeadlessWindows final : public Screen {
public:
    std::deque<Answer> answers;  // to the coming messages; none left: ok
    std::vector<ShownMessage> messages;
    std::vector<std::string> formLog;  // such as "Create1 disabled", "Create1 hidden", "Create2 shown"
    int changes = 0;                   // how often a control or the rows of a list were said to have changed
    bool ended = false;

    // The forms on the screen, the one shown last at the end.
    const std::vector<Form*>& visibleForms() const { return visible_; }
    // Lets every running timer's time pass once.
    void passTime();

    void formChanged(Form& form) override;
    void controlChanged(Control&) override { ++changes; }
    void rowsChanged(Control&, RowChange, int) override { ++changes; }
    void timerChanged(Timer& timer) override;
    Answer ask(const std::string& text, const std::string& title, Buttons buttons) override;
    Size screenSize() override { return {1024, 768}; }
    void quit() override { ended = true; }

private:
    struct Known {
        const Form* form;
        bool enabled;
    };
    bool& knownEnabled(const Form& form);
    std::vector<Form*> visible_;
    std::vector<Known> known_;
    std::vector<Timer*> timers_;
};

// A file dialog that answers from a script: a path, or nothing for a cancel. It keeps what it was asked.
class HeadlessFileDialog final : public FileDialog {
public:
    std::deque<std::optional<std::string>> answers;  // none left: cancel
    std::vector<FileQuestion> questions;

    std::optional<std::string> askOpen(const FileQuestion& question) override { return answer(question); }
    std::optional<std::string> askSave(const FileQuestion& question) override { return answer(question); }

private:
    std::optional<std::string> answer(const FileQuestion& question);
};

// A clock that stands at a set text.
class SetClock final : public Clock {
public:
    std::string text = "15/11/2026 19:30:05";
    std::string now() override { return text; }
};

}  // namespace vrix
