#include "product/plan.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "common/utf8.h"
#include "store/open_key.h"

namespace vrix {

namespace {

using Kind = StoreChange::Kind;

// ---- What may be written ----

[[noreturn]] void refuse(const std::string& why) { throw Refusal(Refusal::Kind::refused, why); }

void refuseBadKey(const ProductId& id) {
    if (const std::string why = whyNoKey(id); !why.empty()) refuse(why);
}

// A root that contains another Product's root cannot be changed without changing that one.
void refuseShared(const std::vector<ProductId>& listed, const ProductId& id, bool mayLieWithin) {
    const KeyPath root = rootPath(id);
    for (const ProductId& other : listed) {
        if (isSameProduct(other, id) || !whyNoKey(other).empty()) continue;
        const KeyPath otherRoot = rootPath(other);
        if (isWithin(otherRoot, root) || (!mayLieWithin && isWithin(root, otherRoot))) {
            refuse("the settings of \"" + other.name + "\" and those of the key " + id.key + " lie in one another");
        }
    }
}

// ---- Rows of the list ----

bool leadsTo(const StoredValue& row, const std::string& key) { return samePath(partsOf(textOf(row)), partsOf(key)); }

std::string nameOf(const ProductId& id, const Values& rows) {
    if (!id.name.empty()) return id.name;
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const StoredValue& r) { return leadsTo(r, id.key); });
    if (row == rows.end()) refuse("the Product has no name, and the store knows none for its key");
    return row->name;
}

// Obsolete rows are removed before one is set: a row that differs only in case would be found under both names.
void planRows(Plan& plan, const ProductStore& store, const ProductId& id, Unnamed unnamed) {
    const KeyPath path = listPath(id.tree);
    const Values rows = store.values(path);
    const std::string name = nameOf(id, rows);
    std::optional<StoredValue> before;
    for (const StoredValue& row : rows) {
        const bool same = sameName(row.name, name);
        const bool ours = leadsTo(row, id.key);
        if (same && !ours && store.hasRoot({id.tree, "", textOf(row)})) {
            refuse("the name \"" + name + "\" belongs to the Product with the key " + textOf(row));
        }
        if (row.name == name) {
            before = row;
        } else if (same || (ours && unnamed == Unnamed::removed)) {
            plan.push_back({Kind::removeValue, path, row});
        }
    }
    if (!before || (!id.name.empty() && textOf(*before) != id.key)) {
        plan.push_back({Kind::setValue, path, textValue(name, id.key), before});
    }
}

// ---- Values ----

// The changes that make a key's values the wanted ones. With `inOrder` those of a list: a value takes its place by
// being set behind the others, so from the first wrong place on all are set again.
void planValues(Plan& plan, const KeyPath& path, Values wanted, const Values& there, Unnamed unnamed, bool inOrder) {
    const ValuesByName isThere = byName(there);
    const ValuesByName isWanted = byName(wanted);
    std::unordered_set<std::string> wantedInAnyCase;
    for (const StoredValue& value : wanted) wantedInAnyCase.insert(foldedName(value.name));
    std::vector<std::string_view> kept;  // wanted and there, in the order of the store
    for (const StoredValue& value : there) {
        if (isWanted.contains(value.name)) {
            kept.push_back(value.name);
        } else if (unnamed == Unnamed::removed || wantedInAnyCase.contains(foldedName(value.name))) {
            plan.push_back({Kind::removeValue, path, value});
        }
    }
    bool isInPlace = true;
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        StoredValue& value = wanted[place];
        isInPlace = isInPlace && (!inOrder || (place < kept.size() && kept[place] == value.name));
        const auto found = isThere.find(value.name);
        const StoredValue* before = found == isThere.end() ? nullptr : found->second;
        if (before != nullptr && isInPlace) {
            if (!(*before == value)) plan.push_back({Kind::setValue, path, std::move(value), *before});
            continue;
        }
        if (before != nullptr) plan.push_back({Kind::removeValue, path, *before});
        plan.push_back({Kind::setValue, path, std::move(value)});
    }
}

// Keeps the store's dates of creation. Without any, the given ones are written.
void settleDates(StoredKey& wanted, Values& there) {
    const auto isDate = [](const StoredValue& value) { return isCreationDate(value.name); };
    if (std::erase_if(there, isDate) > 0) std::erase_if(wanted.values, isDate);
}

// `found` is the key as the store has it, or null.
void planKey(Plan& plan, const Product& stored, const StoredKey* found, StoredKey& wanted, Unnamed unnamed) {
    Values there = found == nullptr ? Values() : found->values;
    if (wanted.path == part::root) settleDates(wanted, there);
    const KeyPath path = joinedPaths(rootPath(stored.id), wanted.path);
    if (stored.keys.empty() && wanted.values.empty()) plan.push_back({Kind::makeKey, path});
    planValues(plan, path, std::move(wanted.values), there, unnamed, orderCounts(wanted.path));
}

// ---- Keys that go ----

// The Product's keys with all those above them, as folded paths. Those without values count by what lies below them.
std::unordered_set<std::string> pathsOf(const Product& product, bool countsEmpty) {
    std::unordered_set<std::string> paths;
    for (const StoredKey& key : product.keys) {
        KeyPath path = key.path;
        bool isNew = countsEmpty || !key.values.empty();
        while (isNew && (isNew = paths.insert(foldedPath(path)).second) && !path.empty()) path.pop_back();
    }
    return paths;
}

// The stored keys that the Product lacks, and that are not empty with all below them. Children come behind parents.
std::vector<KeyPath> unwantedKeys(const Product& stored, const Product& product) {
    const auto wanted = pathsOf(product, true);
    const auto full = pathsOf(stored, false);
    std::vector<KeyPath> unwanted;
    std::unordered_set<std::string> going;
    for (const StoredKey& key : stored.keys) {
        const std::string path = foldedPath(key.path);
        const bool parentGoes = !key.path.empty() && going.contains(foldedPath({key.path.begin(), key.path.end() - 1}));
        if (!parentGoes && (wanted.contains(path) || !full.contains(path))) continue;
        going.insert(path);
        unwanted.push_back(key.path);
    }
    return unwanted;
}

void planKeysToGo(Plan& plan, const ProductId& id, const std::vector<KeyPath>& paths) {
    for (auto path = paths.rbegin(); path != paths.rend(); ++path) {
        plan.push_back({Kind::removeKey, joinedPaths(rootPath(id), *path)});
    }
}

// Keys go before others are made, for the same reason as rows.
void addSettings(Plan& plan, const ProductStore& store, Product wanted, Unnamed unnamed) {
    const Product stored = store.read(wanted.id);
    wanted.at(part::root);
    wanted.sortKeys();
    if (unnamed == Unnamed::removed) planKeysToGo(plan, wanted.id, unwantedKeys(stored, wanted));
    const auto there = keysByPath(stored);
    for (StoredKey& key : wanted.keys) {
        const auto found = there.find(foldedPath(key.path));
        planKey(plan, stored, found == there.end() ? nullptr : found->second, key, unnamed);
    }
}

}  // namespace

Plan planApply(const ProductStore& store, Product product, Unnamed unnamed) {
    refuseBadKey(product.id);
    refuseShared(store.list(), product.id, false);
    Plan plan;
    planRows(plan, store, product.id, unnamed);
    addSettings(plan, store, std::move(product), unnamed);
    return plan;
}

Plan planLists(const ProductStore& store, const ProductStore& wanted, Unnamed unnamed) {
    Plan plan;
    for (const Tree tree : {Tree::installed, Tree::toolkit}) {
        const KeyPath path = listPath(tree);
        planValues(plan, path, wanted.values(path), store.values(path), unnamed, true);
    }
    return plan;
}

Plan planSettings(const ProductStore& store, Product product, Unnamed unnamed) {
    Plan plan;
    addSettings(plan, store, std::move(product), unnamed);
    return plan;
}

Plan planRemoval(const ProductStore& store, const ProductId& id) {
    Plan plan;
    const bool hasKey = whyNoKey(id).empty();
    if (hasKey) {
        refuseShared(store.list(), id, true);
        std::vector<KeyPath> paths;
        for (const StoredKey& key : store.read(id).keys) paths.push_back(key.path);
        planKeysToGo(plan, id, paths);
    }
    const KeyPath list = listPath(id.tree);
    for (const StoredValue& row : store.values(list)) {
        if (leadsTo(row, id.key) && (hasKey || sameName(row.name, id.name))) {
            plan.push_back({Kind::removeValue, list, row});
        }
    }
    return plan;
}

// ---- Writing ----

namespace {

// Caches the open key: it stays open while the next change is in the same key.
class Writer {
public:
    explicit Writer(Registry& registry) : registry_(registry) {}

    RegistryStatus make(const StoreChange& change) {
        const RegistryStatus status = change.kind == Kind::removeKey ? removeKey(change.path) : changeIn(change);
        const bool removes = change.kind == Kind::removeKey || change.kind == Kind::removeValue;
        return removes && status == RegistryStatus::fileNotFound ? RegistryStatus::success : status;
    }

private:
    RegistryStatus changeIn(const StoreChange& change) {
        if (const RegistryStatus status = goTo(change.path, change.kind != Kind::removeValue);
            status != RegistryStatus::success) {
            return status;
        }
        const StoredValue& value = change.value;
        if (change.kind == Kind::removeValue) return registry_.deleteValue(open_->key, value.name);
        if (change.kind == Kind::makeKey) return RegistryStatus::success;
        return registry_.setValue(open_->key, value.name, value.type, value.data);
    }

    RegistryStatus goTo(const KeyPath& path, bool make) {
        if (open_ && path == path_) return RegistryStatus::success;
        open_.emplace(registry_);
        path_ = path;
        const RegistryStatus status = openBelowFamily(registry_, path, access::change, make, open_->key);
        if (status != RegistryStatus::success) open_.reset();
        return status;
    }

    RegistryStatus removeKey(KeyPath path) {
        const std::string name = path.back();
        path.pop_back();
        const RegistryStatus status = goTo(path, false);
        return status == RegistryStatus::success ? registry_.deleteKey(open_->key, name) : status;
    }

    Registry& registry_;
    KeyPath path_;
    std::optional<OpenKey> open_;
};

}  // namespace

void perform(Registry& registry, const Plan& plan, std::size_t* made) {
    Writer writer(registry);
    for (const StoreChange& change : plan) {
        const RegistryStatus status = writer.make(change);
        if (status != RegistryStatus::success) refuse(refusalText(change.path, status));
        if (made != nullptr) ++*made;
    }
}

}  // namespace vrix
