#include "product/dependency_names.h"

#include <algorithm>
#include <map>

#include "common/utf8.h"

namespace vrix {

namespace {

// Texts by the folded names of their values.
std::map<std::string, std::string> textsOf(const Values& values) {
    std::map<std::string, std::string> texts;
    for (const StoredValue& value : values) texts.emplace(foldedName(value.name), textOf(value));
    return texts;
}

std::string textAt(const std::map<std::string, std::string>& texts, const std::string& name) {
    const auto found = texts.find(foldedName(name));
    return found == texts.end() ? "" : found->second;
}

}  // namespace

std::vector<std::string> numbersOf(const std::string& row) {
    std::vector<std::string> numbers;
    for (std::size_t from = 0; !row.empty() && from <= row.size();) {
        const std::size_t end = std::min(row.find(' ', from), row.size());
        numbers.push_back(row.substr(from, end - from));
        from = end + 1;
    }
    return numbers;
}

DependencyNames::DependencyNames(const Product& product)
    : indexes_(textsOf(product.values(part::indexTable))), rows_(textsOf(product.values(part::matrix))) {
    for (const StoredValue& value : product.values(part::indexTable)) names_.emplace(textOf(value), value.name);
}

std::string DependencyNames::topicOf(const std::string& number) const {
    const auto found = names_.find(number);
    return found == names_.end() ? '#' + number : found->second;
}

std::vector<std::string> DependencyNames::named(const std::string& row) const {
    std::vector<std::string> names;
    for (const std::string& number : numbersOf(row)) names.push_back(topicOf(number));
    return names;
}

std::vector<std::string> DependencyNames::of(const std::string& topic) const {
    return named(textAt(rows_, textAt(indexes_, topic)));
}

}  // namespace vrix
