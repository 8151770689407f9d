#include "product/view.h"

#include <algorithm>
#include <map>

#include "common/utf8.h"
#include "store/option_table.h"

namespace vrix {

namespace {

// The texts of a key by the names of its values in small letters.
std::map<std::string, std::string> textsOf(const StoredKey* key) {
    std::map<std::string, std::string> texts;
    if (key == nullptr) return texts;
    for (const StoredValue& value : key->values) texts.emplace(foldedName(value.name), textOf(value));
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
    : indexes_(textsOf(product.find(part::indexTable))), rows_(textsOf(product.find(part::matrix))) {
    const StoredKey* indexTable = product.find(part::indexTable);
    if (indexTable == nullptr) return;
    for (const StoredValue& value : indexTable->values) names_.emplace(textOf(value), value.name);
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

namespace {

std::vector<TopicView> topicsOf(const StoredKey* key, const DependencyNames& dependencies) {
    std::vector<TopicView> topics;
    if (key == nullptr) return topics;
    for (const StoredValue& topic : key->values) {
        topics.push_back({topic.name, textOf(topic), dependencies.of(topic.name)});
    }
    return topics;
}

}  // namespace

ProductView viewOf(const Product& product) {
    ProductView view;
    view.id = product.id;
    view.created = createdOf(product);
    const StoredKey* options = product.find(part::options);
    for (const OptionRow& option : optionTable()) {
        const StoredValue* value = findValue(options, option.name);
        if (value != nullptr) view.options.emplace_back(option.name, textOf(*value));
    }
    const DependencyNames dependencies(product);
    view.topics = topicsOf(product.find(part::topics), dependencies);
    view.addedTopics = topicsOf(product.find(part::addedTopics), dependencies);
    if (const StoredKey* fields = product.find(part::smartFields)) {
        for (const StoredValue& field : fields->values) view.smartFields.push_back(textOf(field));
    }
    return view;
}

}  // namespace vrix
