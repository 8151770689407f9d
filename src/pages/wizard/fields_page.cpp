#include "pages/wizard/fields_page.h"

#include "pages/smartfields/create19.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/wizard/field_options_page.h"
#include "pages/wizard/product_options.h"

namespace vrix {

namespace {

constexpr int top(int slot) { return 28 + slot * 96; }

std::string fieldName(int number, const char* what = "") { return "UserDef" + std::to_string(number) + what; }

std::string slotName(const char* what, int slot) { return what + std::to_string(slot + 1); }

}  // namespace

UserField::UserField(Container& page, int number, int slot)
    : title(page, slotName("TitleLbl", slot), {0, top(slot), 0, 18}, "Field " + std::to_string(number), Look::section),
      nameLbl(page, slotName("NameLbl", slot), {0, top(slot) + 26, 56, 18}, "Name:"),
      name(page, fieldName(number), {60, top(slot) + 23, 250, 24}),
      posLbl(page, slotName("PosLbl", slot), {326, top(slot) + 26, 60, 18}, "Position:"),
      pos(page, fieldName(number, "Pos"), {390, top(slot) + 23, 0, 24}),
      pathLbl(page, slotName("PathLbl", slot), {0, top(slot) + 58, 56, 18}, "Path:"),
      path(page, fieldName(number, "Path"), {60, top(slot) + 55, -102, 24}),
      browse(page, slotName("Browse", slot) + "Btn", {-88, top(slot) + 53, 88, 28}, "Browse") {}

FieldsPage::FieldsPage(Toolkit& owner, std::string_view name, int first, int last)
    : Page(owner, name, "User Defined Fields"), first_(first) {
    for (int number = first; number <= last; ++number) {
        UserField& field = *fields_.emplace_back(std::make_unique<UserField>(Frame2, number, number - first));
        field.browse.action = [this, &field] { browse(CommonDialog1, field.path); };
    }
}

Page& FieldsPage::group() { return toolkit.create10; }

void FieldsPage::initThis() {
    for (const auto& field : fields_) field->pos.clear();
    for (const auto& field : fields_) {
        for (const char* position :
             {"After Cover", "After Content Summary", "Before Topics", "After Topics", "After Conclusion"}) {
            field->pos.addItem(position);
        }
        field->pos.setListIndex(0);
    }
    showTask();
    for (const auto& field : fields_) {
        if (editing()) {
            toolkit.options.load({&field->name, &field->path, &field->pos});
        } else {
            field->name.clear();
            field->path.clear();
        }
    }
}

Create10::Create10(Toolkit& owner) : FieldsPage(owner, "Create10", 1, 3) {
    NextBtn.action = [this] { goForward(toolkit.create11); };
    BackBtn.action = [this] { backInGroup(pageBefore()); };
}

Form& Create10::pageBefore() const {
    if (toolkit.create8.thisTopicCount <= 1) return toolkit.create8;
    return toolkit.create9;
}

Create11::Create11(Toolkit& owner) : FieldsPage(owner, "Create11", 4, 5) {
    NextBtn.action = [this] { goForward(toolkit.create12); };
    BackBtn.action = [this] { goTo(toolkit.create10); };
}

Create12::Create12(Toolkit& owner) : FieldsPage(owner, "Create12", 6, 8) {
    NextBtn.action = [this] { goForward(toolkit.create13); };
    BackBtn.action = [this] { goTo(toolkit.create11); };
}

Create13::Create13(Toolkit& owner) : FieldsPage(owner, "Create13", 9, 10) {
    NextBtn.action = [this] { nextThis13(); };
    BackBtn.action = [this] { goTo(toolkit.create12); };
}

void Create13::nextThis13() {
    if (anyFieldHasPath(toolkit)) {
        goForward(toolkit.create14);
    } else {
        goForward(toolkit.create19);
    }
}

UserField& userField(const Toolkit& toolkit, int number) {
    if (number <= 3) return toolkit.create10.field(number);
    if (number <= 5) return toolkit.create11.field(number);
    if (number <= 8) return toolkit.create12.field(number);
    return toolkit.create13.field(number);
}

bool anyFieldHasPath(const Toolkit& toolkit) {
    for (int number = 1; number <= userFieldCount; ++number) {
        if (!userField(toolkit, number).path.text().empty()) return true;
    }
    return false;
}

}  // namespace vrix
