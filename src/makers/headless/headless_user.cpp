#include "makers/headless/headless_user.h"

#include <stdexcept>

#include "forms/buttons.h"
#include "forms/event.h"
#include "forms/form.h"
#include "forms/inputs.h"
#include "forms/pictures.h"

namespace vrix {

Form& HeadlessUser::form() const {
    const auto& forms = windows_.visibleForms();
    for (auto place = forms.rbegin(); place != forms.rend(); ++place) {
        Form& candidate = **place;
        if (candidate.enabled() && (formName_.empty() || candidate.name() == formName_)) return candidate;
    }
    throw std::logic_error("no form takes input" + (formName_.empty() ? "" : ": " + formName_));
}

HeadlessUser& HeadlessUser::at(std::string_view formName) {
    formName_ = formName;
    return *this;
}

template <class Kind>
Kind& HeadlessUser::reach(std::string_view name) const {
    Form& page = form();
    auto* found = dynamic_cast<Kind*>(page.find(name));
    const std::string where = std::string(name) + " on " + page.name();
    if (found == nullptr) throw std::logic_error("no such control: " + where);
    if (!found->visible() || !found->enabled()) throw std::logic_error("not to be reached: " + where);
    return *found;
}

HeadlessUser& HeadlessUser::event(const std::function<void()>& gesture) {
    if (windows_.ended) throw std::logic_error("the program has ended");
    formName_.clear();
    runEvent(windows_, gesture);
    return *this;
}

HeadlessUser& HeadlessUser::press(std::string_view button) {
    auto& target = reach<ImageButton>(button);
    event([&] { target.mouseDown(); });
    return event([&] { target.mouseUp(); });
}

HeadlessUser& HeadlessUser::pressTask(std::string_view picture, bool inside) {
    auto& target = reach<TaskPicture>(picture);
    event([&] { target.mouseDown(); });
    return event([&] { target.mouseUp(inside ? 1 : 0, 1); });
}

HeadlessUser& HeadlessUser::type(std::string_view textBox, const std::string& text) {
    auto& target = reach<TextBox>(textBox);
    return event([&] { target.setText(text); });
}

HeadlessUser& HeadlessUser::check(std::string_view checkBox, bool checked) {
    auto& target = reach<CheckBox>(checkBox);
    return event([&] { target.setValue(checked ? 1 : 0); });
}

HeadlessUser& HeadlessUser::choose(std::string_view comboBox, int row) {
    auto& target = reach<ComboBox>(comboBox);
    if (row < 0 || row >= target.count()) throw std::logic_error("no such row on " + target.name());
    return event([&] { target.userChooses(row); });
}

HeadlessUser& HeadlessUser::choose(std::string_view option) {
    auto& target = reach<OptionButton>(option);
    return event([&] { target.choose(); });
}

HeadlessUser& HeadlessUser::mark(std::string_view list, int row, bool marked) {
    auto& target = reach<MarkList>(list);
    return event([&] { target.userMarks(row, marked); });
}

HeadlessUser& HeadlessUser::click(std::string_view picture) {
    auto& target = reach<Picture>(picture);
    return event([&] {
        if (target.onClick) target.onClick();
    });
}

HeadlessUser& HeadlessUser::close() {
    Form& target = form();
    return event([&] { target.closed(); });
}

}  // namespace vrix
