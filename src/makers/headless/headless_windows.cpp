#include "makers/headless/headless_windows.h"

#include <algorithm>

#include "forms/event.h"
#include "forms/form.h"
#include "forms/timer.h"

namespace vrix {

bool& HeadlessWindows::knownEnabled(const Form& form) {
    const auto found = std::find_if(known_.begin(), known_.end(), [&](const Known& k) { return k.form == &form; });
    if (found != known_.end()) return found->enabled;
    return known_.emplace_back(Known{&form, true}).enabled;
}

void HeadlessWindows::formChanged(Form& form) {
    bool& enabled = knownEnabled(form);
    if (enabled != form.enabled()) {
        enabled = form.enabled();
        formLog.push_back(form.name() + (enabled ? " enabled" : " disabled"));
    }
    const auto place = std::find(visible_.begin(), visible_.end(), &form);
    const bool wasVisible = place != visible_.end();
    if (wasVisible == form.visible()) return;
    if (wasVisible) {
        visible_.erase(place);
    } else {
        visible_.push_back(&form);
    }
    formLog.push_back(form.name() + (wasVisible ? " hidden" : " shown"));
}

void HeadlessWindows::timerChanged(Timer& timer) {
    std::erase(timers_, &timer);
    if (timer.enabled()) timers_.push_back(&timer);
}

void HeadlessWindows::passTime() {
    const std::vector<Timer*> running = timers_;
    for (Timer* timer : running) {
        if (!ended) runEvent(*this, timer->onTimer);
    }
}

Answer HeadlessWindows::ask(const std::string& text, const std::string& title, Buttons buttons) {
    messages.push_back({title, text, buttons});
    if (answers.empty()) return Answer::ok;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> HeadlessFileDialog::answer(const FileQuestion& question) {
    questions.push_back(question);
    if (answers.empty()) return std::nullopt;
    auto chosen = answers.front();
    answers.pop_front();
    return chosen;
}

}  // namespace vrix
