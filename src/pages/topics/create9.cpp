#include "pages/topics/create9.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/number.h"
#include "common/runtime_failure.h"
#include "pages/topics/create20.h"
#include "pages/topics/create8.h"
#include "pages/wizard/fields_page.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"
#include "store/selected_product.h"

namespace vrix {

namespace {

// The rows of the list that a dependency row marks, in its order. Numbers are compared as texts. One that no row
// carries marks the row of the number before it again, or the first row if it is the first number.
std::vector<int> rowsToMark(const MarkList& list, std::string_view dependencies) {
    std::unordered_map<std::string, int> rowOf;  // by the number that the row carries
    for (const MarkList::Row& row : list.rows()) {
        rowOf.emplace(std::to_string(row.itemData), static_cast<int>(rowOf.size()));
    }
    std::vector<int> marks;
    int hit = 0;
    while (true) {
        const auto blank = dependencies.find(' ');
        const auto found = rowOf.find(std::string(dependencies.substr(0, blank)));
        if (found != rowOf.end()) hit = found->second;
        marks.push_back(hit);
        if (blank == std::string_view::npos) return marks;
        dependencies.remove_prefix(blank + 1);
    }
}

}  // namespace

Create9::Create9(Toolkit& owner) : Page(owner, "Create9", "Topic Dependencies") {
    Topics.onClick = [this] { fillDependsList(Topics.listIndex()); };
    DependsList.onClick = [this] { rebuildRow(); };
    NextBtn.action = [this] { nextThis9(); };
    BackBtn.action = [this] { backInGroup(toolkit.create20); };
}

void Create9::initThis() {
    DependsList.clear();
    Topics.clear();
    showTaskOfLastPage();
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
    fillDependsList(0);
}

void Create9::loadTopics() {
    ProductReg& reg = toolkit.productReg;
    reg.GetTopics(toolkit.selectedProduct.ProductRegKey);
    EditTopicNames.sizeTo(reg.CountTopics - 1);
    for (int r = 0; r < reg.CountTopics; ++r) EditTopicNames.at(r) = reg.topic(r).name;
    for (int r = 0; r < reg.CountTopics; ++r) Topics.addItem(EditTopicNames.at(r));
}

// The name of a value in the matrix is its row in Depends. A name that is no such row is fatal.
void Create9::loadMatrix() {
    const SettingsTable matrix =
        toolkit.settings.GetAllSettings(application, toolkit.selectedProduct.ProductRegKey + "\\Dependencies\\Matrix");
    const int rows = halved(count16(matrix.cellCount()));
    Depends.sizeTo(Topics.count());
    for (int r = 0; r < rows; ++r) Depends.at(toInt16(matrix.name(r))) = matrix.text(r);
}

void Create9::fillDependsList(int topicRow) {
    DependsList.clear();
    const TextTable& names = Edit ? EditTopicNames : toolkit.create8.TopicNames;
    const int count = Edit ? toolkit.productReg.CountTopics : toolkit.create8.i;
    for (int r = 0; r < count; ++r) {
        if (r != topicRow) DependsList.addItem(names.at(r), r);
    }
    std::string dependencies;
    ignoring([&] { dependencies = Depends.at(topicRow); });
    if (dependencies.empty()) return;
    ignoring([&] { DependsList.mark(rowsToMark(DependsList, dependencies)); });
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
        goForward(toolkit.create10);
    }
}

// Nothing is deleted before: values with an older index or name stay beside the new ones.
void Create9::save() {
    const auto kept = toolkit.settings.keepKeys();
    const int topics = toolkit.productReg.CountTopics;
    const std::string root = toolkit.selectedProduct.ProductRegKey + "\\Dependencies";
    for (int r = 0; r < std::max(topics, 1); ++r) {
        const std::string index = std::to_string(r);
        toolkit.settings.SaveSetting(application, root + "\\IndexTable", EditTopicNames.at(r), index);
        toolkit.settings.SaveSetting(application, root + "\\Matrix", index, topics < 2 ? "" : Depends.at(r));
    }
}

}  // namespace vrix
