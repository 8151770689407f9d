#include "pages/topics/create9.h"

#include <algorithm>

#include "common/number.h"
#include "common/runtime_failure.h"
#include "pages/topics/create20.h"
#include "pages/topics/create8.h"
#include "pages/topics/dependencies.h"
#include "pages/wizard/fields_page.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"
#include "store/selected_product.h"

namespace vrix {

Create9::Create9(Toolkit& owner) : Page(owner, "Create9", "Topic Dependencies") {
    Topics.onClick = [this] { fillDependsList(toolkit, Topics.listIndex()); };
    DependsList.onClick = [this] { rebuildRow(); };
    NextBtn.action = [this] { nextThis9(); };
    BackBtn.action = [this] { backInGroup(Edit, toolkit.create20); };
    ExitBtn.action = [this] { exitGroup(Edit); };
}

void Create9::initThis9() {
    DependsList.clear();
    Topics.clear();
    showTaskOfLastPage(Edit);
    if (Edit) {
        loadTopics();
        loadMatrix();
    } else {
        const Create8& topics = toolkit.create8;
        Depends.sizeTo(topics.i);
        const int elements = static_cast<int>(topics.TopicNames.count());
        for (int r = 0; r < elements; ++r) Topics.addItem(topics.TopicNames.at(r));
    }
    Topics.setListIndex(0);
    fillDependsList(toolkit, 0);
}

void Create9::loadTopics() {
    ProductReg& reg = toolkit.productReg;
    reg.GetTopics(toolkit.selectedProduct.ProductRegKey);
    EditTopicNames.sizeTo(reg.CountTopics - 1);
    for (int r = 0; r < reg.CountTopics; ++r) EditTopicNames.at(r) = reg.topic(r).name;
    for (int r = 0; r < reg.CountTopics; ++r) Topics.addItem(EditTopicNames.at(r));
}

// The name of a value in the matrix is its row in Depends. Any other name ends the program.
void Create9::loadMatrix() {
    const SettingsTable matrix =
        toolkit.settings.GetAllSettings(application, toolkit.selectedProduct.ProductRegKey + "\\Dependencies\\Matrix");
    const int rows = halved(count16(matrix.cellCount()));
    Depends.sizeTo(Topics.count());
    for (int r = 0; r < rows; ++r) Depends.at(toInt16(matrix.name(r))) = matrix.text(r);
}

// Makes the shown Topic's row from the marks.
void Create9::rebuildRow() {
    std::string row;
    for (const MarkList::Row& topic : DependsList.rows()) {
        if (!topic.marked) continue;
        if (!row.empty()) row += ' ';
        row += std::to_string(topic.itemData);
    }
    ignoring([&] { Depends.at(Topics.listIndex()) = row; });
}

void Create9::nextThis9() {
    if (Edit) {
        save();
        goToHub();  // edit mode stays on, on purpose
    } else {
        goForward(toolkit.create10, &Create10::initThis);
    }
}

// Nothing is deleted before: values with an older index or name stay beside the new ones.
void Create9::save() {
    const auto kept = toolkit.settings.keepKeys();
    const int topics = toolkit.productReg.CountTopics;
    const std::string root = toolkit.selectedProduct.ProductRegKey + "\\Dependencies";
    const auto saveRow = [&](int row, const std::string& index) {
        toolkit.settings.SaveSetting(application, root + "\\IndexTable", EditTopicNames.at(row), index);
        toolkit.settings.SaveSetting(application, root + "\\Matrix", index, topics < 2 ? "" : Depends.at(row));
    };
    for (int r = 0; r < std::max(topics, 1); ++r) saveRow(r, std::to_string(r));
}

}  // namespace vrix
