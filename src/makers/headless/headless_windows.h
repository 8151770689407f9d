#pragma once

#include <deque>
#include <set>
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

// Windows without a screen. It keeps every message, the order in which forms were shown, hidden, enabled and disabled,
// the running timers, and whether the program ended. Messages are answered from a script. There is no painting, no
// focus and no mouse pointer.
class HeadlessWindows final : public Screen {
public:
    std::deque<Answer> answers;  // to the next messages; when none is left: ok
    std::vector<ShownMessage> messages;
    std::vector<std::string> formLog;  // such as "Create1 disabled", "Create1 hidden", "Create2 shown"
    int changes = 0;                   // how often a control or the rows of a list were said to have changed
    bool ended = false;

    // The forms on the screen, the one shown last at the end.
    const std::vector<Form*>& visibleForms() const { return visible_; }
    // Raises every running timer once.
    void passTime();

    void formChanged(Form& form) override;
    void controlChanged(Control&) override { ++changes; }
    void rowsChanged(Control&, RowChange) override { ++changes; }
    void timerChanged(Timer& timer) override;
    Answer ask(const std::string& text, const std::string& title, Buttons buttons) override;
    Size screenSize() override { return {1024, 768}; }
    void quit() override { ended = true; }

private:
    std::vector<Form*> visible_;
    std::set<const Form*> disabled_;
    std::vector<Timer*> timers_;
};

// A file dialog that answers from a script: a path, or nothing for cancel. It keeps every question.
class HeadlessFileDialog final : public FileDialog {
public:
    std::deque<std::optional<std::string>> answers;  // when none is left: cancel
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
