#include "topics/dependencies.h"

#include <string>
#include <string_view>
#include <unordered_map>

#include "common/runtime_failure.h"
#include "store/product_reg.h"
#include "topics/create8.h"
#include "topics/create9.h"

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

// The rows that a dependency row marks, in its order. A number that no row carries marks the row of the number before
// once more, and at the start the first row.
std::vector<int> rowsToMark(const MarkList& list, std::string_view dependencies) {
    std::unordered_map<std::string, int> rowOf;
    for (int j = 0; j < list.count(); ++j) {
        rowOf[std::to_string(list.rows()[static_cast<std::size_t>(j)].itemData)] = j;
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
