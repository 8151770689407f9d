#include "makers/headless/headless_windows.h"

#include <algorithm>

#include "forms/event.h"
#include "forms/form.h"
#include "forms/timer.h"

namespace vrix {

namespace {

// The next answer of a script, or the default where none is left.
template <class Entry>
Entry next(std::deque<Entry>& script, const Entry& otherwise) {
    if (script.empty()) return otherwise;
    const Entry answer = script.front();
    script.pop_front();
    return answer;
}

}  // namespace

void HeadlessWindows::formChanged(Form& form) {
    const bool enabled = form.enabled();
    const bool differs = enabled ? disabled_.erase(&form) > 0 : disabled_.insert(&form).second;
    if (differs) formLog.push_back(form.name() + (enabled ? " enabled" : " disabled"));
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
    return next(answers, Answer::ok);
}

std::optional<std::string> HeadlessFileDialog::answer(const FileQuestion& question) {
    questions.push_back(question);
    return next(answers, {});
}

}  // namespace vrix
