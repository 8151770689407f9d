#include "pages/smartfields/create19.h"

#include "common/code_page.h"
#include "common/number.h"
#include "common/runtime_failure.h"
#include "pages/smartfields/smart_field_module.h"
#include "pages/wizard/create17.h"
#include "pages/wizard/field_options_page.h"
#include "pages/wizard/product_options.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

Create19::Create19(Toolkit& owner) : Page(owner, "Create19", "SmartFields") {
    SmartFieldText.enterPresses = &CreateBtn;
    SmartFields.onClick = [this] { showCurrent(); };
    CreateBtn.action = [this] { createThis19(); };
    UpdateBtn.action = [this] { updateThis19(); };
    DeleteBtn.action = [this] { deleteThis19(); };
    NextBtn.action = [this] { nextThis19(); };
    BackBtn.action = [this] { backInGroup(Edit, toolkit.create16); };
    ExitBtn.action = [this] { exitGroup(Edit); };
}

TextTable& Create19::list() { return toolkit.smartFieldModule.SmartFieldList; }

void Create19::initThis19() {
    SmartFieldCount = 0;
    SmartFields.clear();
    list().sizeTo(0);
    showTaskOfLastPage(Edit);
    if (Edit) loadFromStore();
}

// Each statement that fails is skipped. The stored default is not read: where there are SmartFields, the box is ticked.
void Create19::loadFromStore() {
    SettingsTable stored;
    ignoring([&] {
        stored = toolkit.settings.GetAllSettings(application, toolkit.selectedProduct.ProductRegKey + "\\SmartFields");
    });
    std::size_t cells = 0;
    ignoring([&] { cells = stored.cellCount(); });
    const std::int16_t rows = halved(cappedCount16(cells));
    for (int r = 0; r < rows; ++r) {
        ignoring([&] { SmartFields.addItem(stored.text(r)); });
        ignoring([&] { list().growTo(SmartFieldCount); });
        ignoring([&] { list().at(r) = stored.text(r); });
        ignoring([&] { SmartFieldCount = add16(SmartFieldCount, 1); });
    }
    if (SmartFieldCount > 0) {
        ignoring([&] { SmartFields.setListIndex(0); });
        SmartFieldsDefault.setValue(1);
    }
    SmartFieldText.clear();
}

// Shows the current row without its delimiters. Failure 5 for a text too short to have them.
void Create19::showCurrent() {
    const std::string text = SmartFields.text();
    if (text.empty()) return;
    const std::size_t length = characterCount(text);
    if (length < 4) throw RuntimeFailure(FailureNumber::invalidCall);
    const std::size_t first = characterStart(text, 2);
    SmartFieldText.setText(text.substr(first, characterStart(text, length - 2) - first));
}

std::string Create19::delimited() const { return "<!" + SmartFieldText.text() + "!>"; }

void Create19::createThis19() {
    if (SmartFieldText.text().empty()) {
        tell("Empty SmartField", "You have not entered a SmartField.");
    } else {
        const std::string text = delimited();
        SmartFields.addItem(text);
        SmartFieldCount = add16(SmartFieldCount, 1);
        SmartFields.setListIndex(SmartFieldCount - 1);
        list().growTo(SmartFieldCount);
        list().at(SmartFieldCount - 1) = text;
        SmartFieldText.clear();
    }
    if (SmartFieldCount > 0) SmartFieldsDefault.setValue(1);
    SmartFieldText.takeFocus();
}

void Create19::updateThis19() {
    if (SmartFieldCount <= 0) return;
    const int row = SmartFields.listIndex();
    const std::string text = delimited();
    SmartFields.removeItem(row);
    SmartFields.insertItem(text, row);
    list().at(row) = text;
    SmartFields.setListIndex(0);
}

void Create19::deleteThis19() {
    if (SmartFieldCount <= 0) {
        tell("No SmartFields To Delete", "No SmartFields to delete");
        return;
    }
    const int row = SmartFields.listIndex();
    SmartFields.removeItem(row);
    SmartFieldText.clear();
    list().at(row).clear();
    compact();
    SmartFieldCount = add16(SmartFieldCount, -1);
    if (SmartFieldCount > 0) {
        SmartFields.setListIndex(0);
    } else {
        SmartFieldsDefault.setValue(0);
    }
}

// Moves the SmartFields that are not empty to the front. The elements behind the last of them keep stale text.
void Create19::compact() {
    int written = 0;
    for (int read = 0; read < SmartFieldCount; ++read) {
        if (list().at(read).empty()) continue;
        list().at(written) = list().at(read);
        ++written;
    }
}

void Create19::nextThis19() {
    if (Edit) {
        save();
        endEdit(Edit);
    } else {
        goForward(toolkit.create17, &Create17::initThis17);
    }
}

// Each statement that fails is skipped.
void Create19::save() {
    const std::string section = toolkit.selectedProduct.ProductRegKey + "\\SmartFields";
    cRegistryFunctions& settings = toolkit.settings;
    if (ignoring([&] { settings.GetAllSettings(application, section); }) == FailureNumber::none) {
        settings.DeleteSetting(application, section, "");
        toolkit.options.remove({&SmartFieldsDefault});
    }
    for (int r = 0; r < SmartFieldCount; ++r) {
        ignoring(
            [&] { settings.SaveSetting(application, section, "SmartField" + std::to_string(r + 1), list().at(r)); });
    }
    toolkit.options.save({&SmartFieldsDefault});
}

}  // namespace vrix
