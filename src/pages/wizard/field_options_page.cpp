#include "pages/wizard/field_options_page.h"

#include "pages/smartfields/create19.h"
#include "pages/wizard/fields_page.h"
#include "pages/wizard/product_options.h"

namespace vrix {

FieldOptionsPage::FieldOptionsPage(Toolkit& owner, std::string_view name, std::string_view prompt,
                                   std::string_view boxName)
    : Page(owner, name, "User Defined Fields Options"), Label3(Frame2, "Label3", {0, 0, 0, 18}, prompt) {
    for (int number = 1; number <= userFieldCount; ++number) {
        const Place place{0, 2 + number * 28, 0, 22};
        const std::string box = std::string(boxName) + std::to_string(number);
        boxes_.push_back(std::make_unique<CheckBox>(Frame2, box, place, ""));
        boxes_.back()->setEnabled(false);
    }
}

Page& FieldOptionsPage::group() { return toolkit.create10; }

std::vector<Control*> FieldOptionsPage::boxes() const {
    std::vector<Control*> all;
    for (const auto& box : boxes_) all.push_back(box.get());
    return all;
}

void FieldOptionsPage::initThis() {
    // A field with a path is in use. A box that was enabled once stays so to the end of the run.
    for (int number = 1; number <= userFieldCount; ++number) {
        const UserField& field = userField(toolkit, number);
        CheckBox& box = *boxes_[static_cast<std::size_t>(number - 1)];
        if (!field.path.text().empty()) box.setEnabled(true);
        box.setCaption(field.name.text());
    }
    showTask();
    toolkit.options.start(boxes(), editing());
}

Create14::Create14(Toolkit& owner)
    : FieldOptionsPage(owner, "Create14", "Allow User To Disable:", "AllowNoUserDefined") {
    NextBtn.action = [this] { goForward(toolkit.create15); };
    BackBtn.action = [this] { goTo(toolkit.create13); };
}

Create15::Create15(Toolkit& owner) : FieldOptionsPage(owner, "Create15", "Selected By Default:", "DefaultUserDef") {
    NextBtn.action = [this] { goForward(toolkit.create16); };
    BackBtn.action = [this] { goTo(toolkit.create14); };
}

Create16::Create16(Toolkit& owner)
    : FieldOptionsPage(owner, "Create16", "Display User Defined Fields:", "ShowUserDefined") {
    NextBtn.action = [this] { nextThis16(); };
    BackBtn.action = [this] { goTo(toolkit.create15); };
}

// The sixty controls of the group, in the order in which they are written.
std::vector<Control*> Create16::groupControls() const {
    std::vector<Control*> all = toolkit.create15.boxes();
    const auto add = [&](const std::vector<Control*>& boxes) { all.insert(all.end(), boxes.begin(), boxes.end()); };
    add(boxes());
    for (int number = 1; number <= userFieldCount; ++number) all.push_back(&userField(toolkit, number).name);
    for (int number = 1; number <= userFieldCount; ++number) all.push_back(&userField(toolkit, number).path);
    for (int number = 1; number <= userFieldCount; ++number) all.push_back(&userField(toolkit, number).pos);
    add(toolkit.create14.boxes());
    return all;
}

void Create16::nextThis16() {
    if (editing()) {
        toolkit.options.rewriteAll(groupControls());
        endEdit();
    } else {
        goForward(toolkit.create19);
    }
}

}  // namespace vrix
