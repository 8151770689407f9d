#include "product/compare.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_map>

#include "product/dependency_names.h"

namespace vrix {

namespace {

constexpr const char* typeNames[] = {"REG_NONE",
                                     "REG_SZ",
                                     "REG_EXPAND_SZ",
                                     "REG_BINARY",
                                     "REG_DWORD",
                                     "REG_DWORD_BIG_ENDIAN",
                                     "REG_LINK",
                                     "REG_MULTI_SZ",
                                     "REG_RESOURCE_LIST",
                                     "REG_FULL_RESOURCE_DESCRIPTOR",
                                     "REG_RESOURCE_REQUIREMENTS_LIST",
                                     "REG_QWORD"};

// One side of the comparison.
struct Side {
    explicit Side(const Product& whole) : product(whole), keys(keysByPath(whole)), dependencies(whole) {}

    // The values that are compared.
    Values valuesAt(const KeyPath& path) const {
        const auto key = keys.find(foldedPath(path));
        Values values = key == keys.end() ? Values() : key->second->values;
        if (path.empty()) {
            std::erase_if(values, [](const StoredValue& value) { return isCreationDate(value.name); });
        }
        return values;
    }
    std::string told(const KeyPath& path, const StoredValue& value) const {
        if (!samePath(path, part::matrix) || textOf(value).empty()) return shown(value);
        return shown(value) + " (" + joined(dependencies.named(textOf(value)), ", ") + ")";
    }

    const Product& product;
    std::unordered_map<std::string, const StoredKey*> keys;
    DependencyNames dependencies;
};

class Comparison {
public:
    Comparison(const Product& left, const Product& right) : left_(left), right_(right) {}

    std::vector<Difference> run() {
        identity();
        Product both;
        KeyMaker maker(both);
        for (const Side* side : {&left_, &right_}) {
            for (const StoredKey& key : side->product.keys) maker.at(key.path);
        }
        both.sortKeys();
        for (const StoredKey& key : both.keys) compareKey(key.path);
        std::stable_sort(found_.begin(), found_.end(),
                         [](const Difference& a, const Difference& b) { return a.group < b.group; });
        return std::move(found_);
    }

private:
    void identity() {
        const ProductId& left = left_.product.id;
        const ProductId& right = right_.product.id;
        const auto tell = [&](const char* what, const std::string& a, const std::string& b) {
            if (a != b) found_.push_back({Group::identity, what, a, b});
        };
        if (!left.name.empty() && !right.name.empty()) tell("name", left.name, right.name);
        tell("key", left.key, right.key);
        tell("tree", treeName(left.tree), treeName(right.tree));
    }

    void compareKey(const KeyPath& path) {
        const Values left = left_.valuesAt(path);
        const Values right = right_.valuesAt(path);
        const ValuesByName onTheLeft = byName(left);
        const ValuesByName onTheRight = byName(right);
        std::vector<std::string> common;
        for (const StoredValue& value : left) {
            const auto other = onTheRight.find(value.name);
            const bool isCommon = other != onTheRight.end();
            if (isCommon) common.push_back(value.name);
            if (!isCommon || !(*other->second == value)) add(path, &value, isCommon ? other->second : nullptr);
        }
        std::vector<std::string> commonOnTheRight;
        for (const StoredValue& value : right) {
            const bool isCommon = onTheLeft.contains(value.name);
            if (isCommon) commonOnTheRight.push_back(value.name);
            if (!isCommon) add(path, nullptr, &value);
        }
        if (orderCounts(path) && common != commonOnTheRight) {
            found_.push_back({groupOf(path), samePath(path, part::indexTable) ? "order of the indexes" : "order",
                              joined(common, ", "), joined(commonOnTheRight, ", ")});
        }
    }

    void add(const KeyPath& path, const StoredValue* left, const StoredValue* right) {
        const std::string& name = (left != nullptr ? left : right)->name;
        Difference difference{groupOf(path), nameOf(path, name), {}, {}};
        if (left != nullptr) difference.left = left_.told(path, *left);
        if (right != nullptr) difference.right = right_.told(path, *right);
        found_.push_back(std::move(difference));
    }

    std::string nameOf(const KeyPath& path, const std::string& name) const {
        if (samePath(path, part::indexTable)) return "index of " + name;
        if (samePath(path, part::matrix)) return "row " + name + " of " + left_.dependencies.topicOf(name);
        if (groupOf(path) != Group::other) return name;
        return joined(path) + (path.empty() ? "" : "\\") + name;
    }

    Side left_;
    Side right_;
    std::vector<Difference> found_;
};

}  // namespace

const char* groupName(Group group) {
    constexpr std::array names{"identity", "options", "topics", "added topics", "dependencies", "SmartFields", "other"};
    return names.at(static_cast<std::size_t>(group));
}

Group groupOf(const KeyPath& path) {
    const auto is = [&](const KeyPath& known) { return samePath(path, known); };
    if (is(part::options)) return Group::options;
    if (is(part::topics)) return Group::topics;
    if (is(part::addedTopics)) return Group::addedTopics;
    if (is(part::indexTable) || is(part::matrix)) return Group::dependencies;
    return is(part::smartFields) ? Group::smartFields : Group::other;
}

std::vector<Difference> compare(const Product& left, const Product& right) { return Comparison(left, right).run(); }

std::string shown(const StoredValue& value) {
    if (isPlainText(value)) return textOf(value);
    return typeName(value.type) + (value.data.empty() ? "" : " ") + hexDigits(value.data, " ");
}

std::string typeName(std::uint32_t type) {
    return type < std::size(typeNames) ? typeNames[type] : std::to_string(type);
}

}  // namespace vrix
