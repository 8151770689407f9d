#include "product/product_store.h"

#include <algorithm>
#include <utility>

#include "store/open_key.h"

namespace vrix {

namespace {

void expect(RegistryStatus status, const KeyPath& path) {
    if (status != RegistryStatus::success) throw Refusal(Refusal::Kind::refused, refusalText(path, status));
}

std::vector<std::string> subkeysOf(Registry& registry, RegistryKey key, const KeyPath& path) {
    std::vector<std::string> names;
    expect(registry.listKeys(key, names), path);
    return names;
}

StoredKey readKey(Registry& registry, RegistryKey key, const KeyPath& path) {
    std::vector<std::string> names;
    std::vector<ValueData> data;
    expect(registry.listValues(key, names, &data), path);
    StoredKey found{path, {}};
    found.values.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].find('\0') == std::string::npos) {
            found.values.push_back({std::move(names[i]), data[i].type, std::move(data[i].bytes)});
        } else {
            ++found.unreachable;
        }
    }
    return found;
}

constexpr std::uint32_t toRead = access::queryValue | access::enumerateSubKeys;

// Runs `use` on a key below the family key, if it is there.
template <class Use>
void onKey(Registry& registry, const KeyPath& path, const Use& use) {
    OpenKey open(registry);
    const RegistryStatus status = openBelowFamily(registry, path, toRead, false, open.key);
    if (status == RegistryStatus::fileNotFound) return;
    expect(status, path);
    use(open.key);
}

// The platform ends the recursion at 512 levels.
void walkKey(Registry& registry, RegistryKey key, const KeyPath& path, const ProductStore::Visit& visit) {
    visit(readKey(registry, key, path));
    for (const std::string& name : subkeysOf(registry, key, path)) {
        const KeyPath below = joinedPaths(path, {name});
        OpenKey open(registry);
        const RegistryStatus status = registry.openKey(key, name, toRead, open.key);
        if (status == RegistryStatus::fileNotFound) continue;  // gone meanwhile
        expect(status, below);
        walkKey(registry, open.key, below, visit);
    }
}

}  // namespace

std::string refusalText(const KeyPath& path, RegistryStatus status) {
    const auto number = std::to_string(static_cast<std::int32_t>(status));
    const std::string why = status == RegistryStatus::accessDenied
                                ? "access is denied, administrator rights may be missing"
                                : "the registry refuses";
    return "Software\\Vrix" + (path.empty() ? "" : "\\" + joined(path)) + ": " + why + " (" + number + ")";
}

RegistryStatus openBelowFamily(Registry& registry, const KeyPath& path, std::uint32_t rights, bool make,
                               RegistryKey& key) {
    const auto step = [&](RegistryKey from, const std::string& name) {
        key = 0;
        return make ? registry.createKey(from, name, rights, key) : registry.openKey(from, name, rights, key);
    };
    RegistryStatus status = step(hive::localMachine, "Software\\Vrix");
    for (std::size_t i = 0; i < path.size() && status == RegistryStatus::success; ++i) {
        const RegistryKey above = key;
        status = step(above, path[i]);
        registry.closeKey(above);
    }
    return status;
}

std::vector<StoredValue> ProductStore::values(const KeyPath& path) const {
    std::vector<StoredValue> found;
    onKey(registry_, path, [&](RegistryKey key) { found = readKey(registry_, key, path).values; });
    return found;
}

std::vector<std::string> ProductStore::subkeys(const KeyPath& path) const {
    std::vector<std::string> found;
    onKey(registry_, path, [&](RegistryKey key) { found = subkeysOf(registry_, key, path); });
    return found;
}

void ProductStore::walk(const KeyPath& path, const Visit& visit) const {
    onKey(registry_, path, [&](RegistryKey key) { walkKey(registry_, key, path, visit); });
}

std::size_t ProductStore::unreachable(const KeyPath& path) const {
    std::size_t count = 0;
    walk(path, [&](const StoredKey& key) { count += key.unreachable; });
    return count;
}

std::vector<ProductId> ProductStore::list() const {
    std::vector<ProductId> products;
    for (const Tree tree : {Tree::installed, Tree::toolkit}) {
        for (const StoredValue& row : values(listPath(tree))) products.push_back({tree, row.name, textOf(row)});
    }
    return products;
}

std::vector<ProductId> ProductStore::leftovers() const {
    const std::vector<ProductId> listed = list();
    std::vector<ProductId> left;
    for (const Tree tree : {Tree::installed, Tree::toolkit}) {
        for (const std::string& key : subkeys(tree == Tree::toolkit ? KeyPath{"Toolkit"} : KeyPath{})) {
            const ProductId id{tree, "", key};
            const bool known = std::any_of(listed.begin(), listed.end(), [&](const ProductId& product) {
                return product.tree == tree && isWithin(rootPath(product), rootPath(id));
            });
            if (!known && whyNoKey(id).empty()) left.push_back(id);
        }
    }
    return left;
}

bool ProductStore::hasRoot(const ProductId& id) const {
    bool found = false;
    onKey(registry_, rootPath(id), [&](RegistryKey) { found = true; });
    return found;
}

Product ProductStore::read(const ProductId& id) const {
    Product product{id, {}};
    if (!whyNoKey(id).empty()) return product;
    const KeyPath root = rootPath(id);
    walk(root, [&](StoredKey key) {
        key.path = belowRoot(key.path, root);
        product.keys.push_back(std::move(key));
    });
    product.sortKeys();
    return product;
}

}  // namespace vrix
