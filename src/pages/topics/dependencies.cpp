#include "pages/topics/dependencies.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>
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

// The number in the text, if it has the form that the program writes: digits, without a leading zero. Any other text
// gives a number that no row has.
std::size_t rowNumber(std::string_view text) {
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    const bool plain = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    if (!plain || (text[0] == '0' && text.size() > 1)) return none;
    std::size_t number = none;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// The rows of the list that a dependency row marks, in its order. A number that no row carries marks the row of the
// number before it again, or the first row if it is the first number.
std::vector<int> rowsToMark(const MarkList& list, std::string_view dependencies) {
    std::vector<int> rowOf;  // by the number that the row carries
    for (int j = 0; j < list.count(); ++j) {
        const auto number = static_cast<std::size_t>(list.rows()[static_cast<std::size_t>(j)].itemData);
        if (number >= rowOf.size()) rowOf.resize(number + 1, -1);
        rowOf[number] = j;
    }
    std::vector<int> marks;
    int hit = 0;
    while (true) {
        const auto blank = dependencies.find(' ');
        const auto number = rowNumber(dependencies.substr(0, blank));
        if (number < rowOf.size() && rowOf[number] >= 0) hit = rowOf[number];
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
