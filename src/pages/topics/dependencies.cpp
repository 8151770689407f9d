#include "pages/topics/dependencies.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/runtime_failure.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "store/product_reg.h"

namespace vrix {

namespace {

void listOtherTopics(Toolkit& toolkit, int topicRow) {
    Create9& page = toolkit.create9;
    const TextTable& names = page.Edit ? page.EditTopicNames : toolkit.create8.TopicNames;
    const int count = page.Edit ? toolkit.productReg.CountTopics : toolkit.create8.i;
    for (int r = 0; r < count; ++r) {
        if (r != topicRow) page.DependsList.addItem(names.at(r), r);
    }
}

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

void fillDependsList(Toolkit& toolkit, int topicRow) {
    Create9& page = toolkit.create9;
    page.DependsList.clear();
    listOtherTopics(toolkit, topicRow);
    std::string dependencies;
    ignoring([&] { dependencies = page.Depends.at(topicRow); });
    if (dependencies.empty()) return;
    ignoring([&] { page.DependsList.mark(rowsToMark(page.DependsList, dependencies)); });
}

}  // namespace vrix
