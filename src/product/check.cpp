#include "product/check.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "common/number.h"
#include "common/runtime_failure.h"
#include "common/utf8.h"
#include "product/compare.h"
#include "product/dependency_names.h"
#include "store/option_table.h"
#include "store/settings_file.h"
#include "store/variant.h"

namespace vrix {

namespace {

constexpr std::size_t mostRows = 16'383;  // of two cells each, counted in 16 bits

using Findings = std::vector<Finding>;

void add(Findings& findings, std::string_view name, std::string place, std::string detail = {}) {
    const FindingKind* kind = findFindingKind(name);
    if (kind == nullptr) throw std::logic_error("no such finding: " + std::string(name));
    findings.push_back({kind, std::move(place), std::move(detail)});
}

std::string placeOf(const ProductId& id, const KeyPath& path = {}) {
    const std::string root = joined(rootPath(id));
    return path.empty() ? root : root + '\\' + joined(path);
}

std::string rowPlace(const ProductId& id) { return joined(listPath(id.tree)) + '\\' + id.name; }

// Whether the text is a number of that range, as the Toolkit converts text.
bool isNumberFrom0(const std::string& text, std::size_t upTo) {
    std::int16_t number = -1;
    ignoring([&] { number = toInt16(text); });
    return number >= 0 && static_cast<std::size_t>(number) <= upTo;
}

bool isPathOfFile(Group group, const std::string& name) {
    const OptionRow* option = group == Group::options ? findOption(name) : nullptr;
    return group == Group::topics || group == Group::addedTopics ||
           (option != nullptr && option->kind == OptionKind::path);
}

// ---- One Product ----

class ProductCheck {
public:
    explicit ProductCheck(const Product& product) : product_(product) {}

    Findings run() {
        if (product_.keys.empty()) {
            add(findings_, "key-without-settings", placeOf(product_.id));
            return std::move(findings_);
        }
        checkText(rowPlace(product_.id), product_.id.name, false);
        checkText(placeOf(product_.id), product_.id.key, false);
        checkOptions();
        checkTopics();
        for (const StoredKey& key : product_.keys) checkKey(key);
        return std::move(findings_);
    }

private:
    void addAt(std::string_view name, const KeyPath& path, std::string detail = {}) {
        add(findings_, name, placeOf(product_.id, path), std::move(detail));
    }
    void addOf(std::string_view name, const KeyPath& path, const std::string& value, std::string detail = {}) {
        add(findings_, name, placeOf(product_.id, path) + '\\' + value, std::move(detail));
    }

    // Of the switches and positions that a page reads.
    void checkOptions() {
        const Values& options = product_.values(part::options);
        for (const OptionRow& option : optionTable()) {
            const bool isRead = option.name != "DefaultCoverPage" && option.name != "DefaultSmartFields";
            const bool isNumber = option.kind == OptionKind::flag || option.kind == OptionKind::position;
            if (!isNumber || !isRead) continue;
            const StoredValue* value = findValue(options, option.name);
            const std::string text = value == nullptr ? "" : textOf(*value);
            constexpr std::size_t lastPosition = 4;
            if (text.empty()) {
                addOf("missing-option", part::options, option.name);
            } else if (!isNumberFrom0(text, option.kind == OptionKind::flag ? 1 : lastPosition)) {
                addOf("odd-option", part::options, option.name, shown(*value));
            }
        }
    }

    void checkTopics() {
        for (const KeyPath& path : {part::topics, part::addedTopics}) {
            for (const StoredValue& topic : product_.values(path)) nameTopic(path, topic.name);
        }
        if (product_.values(part::topics).empty()) addAt("no-topics", part::topics);
        for (const StoredValue& index : product_.values(part::indexTable)) checkIndex(index);
        for (const StoredValue& row : product_.values(part::matrix)) checkRow(row);
        for (const auto& [name, topic] : topics_) {
            if (topic.index.empty()) addOf("topic-without-index", topic.path, topic.name);
            if (topic.index.empty() || rows_.contains(topic.index)) continue;
            addOf("topic-without-row", topic.path, topic.name);
        }
        if (topics_.size() == 1 && product_.values(part::matrix).size() > 1) {
            addAt("one-topic-left", part::matrix);
        }
    }

    void nameTopic(const KeyPath& path, const std::string& name) {
        const auto [topic, isNew] = topics_.emplace(foldedName(name), Topic{name, path, {}});
        if (!isNew) addOf("added-elsewhere", path, name, topic->second.name);
    }

    void checkIndex(const StoredValue& index) {
        const auto topic = topics_.find(foldedName(index.name));
        indexes_.insert(textOf(index));
        if (topic != topics_.end()) {
            topic->second.index = textOf(index);
        } else if (!index.name.empty()) {
            addOf("index-without-topic", part::indexTable, index.name, textOf(index));
        }
    }

    void checkRow(const StoredValue& row) {
        rows_.insert(row.name);
        if (!isDigits(row.name) || !isNumberFrom0(row.name, topics_.size())) {
            if (!row.name.empty()) addOf("row-beyond-topics", part::matrix, row.name);
        }
        for (const std::string& number : numbersOf(textOf(row))) {
            if (indexes_.contains(number) && number != row.name) continue;
            addOf("unknown-dependency", part::matrix, row.name, textOf(row));
            break;
        }
    }

    // ---- Keys and values ----

    void checkKey(const StoredKey& key) {
        const bool isParent = samePath(key.path, {"Dependencies"}) || samePath(key.path, {"Toolkit"});
        const bool isKnown = groupOf(key.path) != Group::other || key.path.empty() || isParent;
        if (!isKnown) addAt("unknown-value", key.path);
        if (key.values.size() > mostRows) addAt("too-many-rows", key.path);
        if (key.unreachable > 0) addAt("unreachable-value", key.path, std::to_string(key.unreachable));
        if (!isWhole(joined(key.path))) addAt("half-character", key.path);
        for (const StoredValue& value : key.values) {
            const bool isListed = groupOf(key.path) != Group::other;
            if (value.name.empty() && isListed) {
                const bool isLast = key.values.size() > 1 && &value == &key.values.back();
                addOf(isLast ? "unnamed-value-behind" : "unnamed-value", key.path, value.name);
            }
            if (isKnown && !isKnownValue(key.path, value.name)) addOf("unknown-value", key.path, value.name);
            checkValue(key.path, value);
        }
    }

    static bool isKnownValue(const KeyPath& path, const std::string& name) {
        if (path.empty()) return isCreationDate(name);
        if (groupOf(path) != Group::options || name.empty()) return groupOf(path) != Group::other;
        return findOption(name) != nullptr ||
               std::any_of(optionTable().begin(), optionTable().end(),
                           [&](const OptionRow& option) { return sameName(option.name, name); });
    }

    void checkValue(const KeyPath& path, const StoredValue& value) {
        const std::string place = placeOf(product_.id, path) + '\\' + value.name;
        checkText(place, value.name, false);
        if (!isPlainText(value)) add(findings_, "odd-type", place, shown(value));
        if (value.type != valuetype::string && value.type != valuetype::expandString) return;
        const std::string text = textOf(value);
        const bool isPath = isPathOfFile(groupOf(path), value.name);
        checkText(place, text, isPath);
        if (isPath && !text.empty()) checkPath(place, text);
    }

    void checkText(const std::string& place, const std::string& text, bool isPath) {
        const auto has = [&](const char* characters) { return text.find_first_of(characters) != std::string::npos; };
        if (has("\"")) add(findings_, "quotation-mark", place, text);
        if (has("\r\n")) add(findings_, "line-break", place, text);
        if (!isPath && has("\\")) add(findings_, "plain-backslash", place, text);
        if (isExpandable(text)) add(findings_, "percent-pair", place, text);
        if (!isWhole(text)) add(findings_, "half-character", place, text);
    }

    void checkPath(const std::string& place, const std::string& path) {
        const bool isNetwork = path.starts_with("\\\\");
        const bool hasDrive = path.size() > 2 && path[1] == ':' && path[2] == '\\';
        const bool isHere = hasDrive && (path[0] == 'C' || path[0] == 'c');
        if (path.front() == ' ' || path.back() == ' ') add(findings_, "blank-at-path-end", place, path);
        const bool goesAsNetwork = escapedPath(path).starts_with("\\\\\\\\");
        if (goesAsNetwork != isNetwork) add(findings_, "path-with-double-backslash", place, path);
        if (hasDrive && !isHere) add(findings_, "drive-letter", place, path);
        if (!isNetwork && !hasDrive && path.front() != '%') add(findings_, "relative-path", place, path);
    }

    struct Topic {
        std::string name;
        KeyPath path;
        std::string index;
    };
    const Product& product_;
    Findings findings_;
    std::map<std::string, Topic> topics_;  // by folded name
    std::set<std::string> indexes_;
    std::set<std::string> rows_;
};

}  // namespace

Findings checkProduct(const Product& product) { return ProductCheck(product).run(); }

Findings checkFiles(const Product& product, Files& files) {
    Findings findings;
    for (const StoredKey& key : product.keys) {
        const Group group = groupOf(key.path);
        for (const StoredValue& value : key.values) {
            const bool isDocument = isPathOfFile(group, value.name) && value.name != "DefaultOutputFile";
            const std::string path = textOf(value);
            if (isDocument && !path.empty() && !files.exists(path)) {
                add(findings, "missing-file", placeOf(product.id, key.path) + '\\' + value.name, path);
            }
        }
    }
    return findings;
}

// ---- Between Products ----

namespace {

void checkPair(const ProductId& a, const ProductId& b, Findings& findings) {
    if (a.tree != b.tree && sameName(a.name, b.name)) {
        add(findings, "same-name-in-both-trees", rowPlace(b));
        return;
    }
    const KeyPath left = rootPath(a);
    const KeyPath right = rootPath(b);
    if (!whyNoKey(a).empty() || !whyNoKey(b).empty()) return;
    if (samePath(left, right)) {
        add(findings, "two-products-one-key", rowPlace(b), a.name);
    } else if (isWithin(left, right) || isWithin(right, left)) {
        add(findings, "nested-products", rowPlace(b), a.name);
    }
}

}  // namespace

Findings checkStore(const ProductStore& store) {
    Findings findings;
    const std::vector<ProductId> listed = store.list();
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const ProductId& id = listed[i];
        if (id.name.empty()) add(findings, "unnamed-value", rowPlace(id));
        if (!whyNoKey(id).empty()) add(findings, "key-of-nothing", rowPlace(id), id.key);
        for (std::size_t j = 0; j < i; ++j) checkPair(listed[j], id, findings);
    }
    if (listed.size() > mostRows) add(findings, "too-many-rows", joined(listPath(Tree::toolkit)));
    for (const ProductId& id : store.leftovers()) add(findings, "leftover", placeOf(id));
    return findings;
}

Findings checkViews(const ProductStore& store, const ProductStore& otherView) {
    Findings findings;
    const std::vector<ProductId> listed = store.list();
    for (const ProductId& other : otherView.list()) {
        for (const ProductId& id : listed) {
            if (id.tree == other.tree && sameName(id.name, other.name)) add(findings, "other-view", rowPlace(id));
        }
    }
    return findings;
}

}  // namespace vrix
