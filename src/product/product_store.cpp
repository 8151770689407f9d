#include "product/product_store.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "store/open_key.h"

namespace vrix {

namespace {

KeyPath below(KeyPath path, const std::string& name) {
    path.push_back(name);
    return path;
}

void expect(RegistryStatus status, const KeyPath& path) {
    if (status != RegistryStatus::success) throw StoreRefused(status, refusalText(path, status));
}

std::vector<std::string> subkeysOf(Registry& registry, RegistryKey key, const KeyPath& path) {
    std::vector<std::string> names;
    std::array<char, 1024> name{};  // the longest has 255 characters of up to four bytes
    for (std::uint32_t index = 0;; ++index) {
        const RegistryStatus status =
            registry.enumKey(key, index, name.data(), static_cast<std::uint32_t>(name.size()));
        if (status == RegistryStatus::noMoreItems) return names;
        expect(status, path);
        names.emplace_back(name.data());
    }
}

// The value of that name, for a listing that gives the name alone.
StoredValue valueOf(Registry& registry, RegistryKey key, std::string name, const KeyPath& path) {
    StoredValue value{std::move(name), 0, {}};
    std::uint32_t size = 0;
    RegistryStatus status = RegistryStatus::moreData;
    while (status == RegistryStatus::moreData) {  // at first it tells the size
        value.data.resize(size);
        std::uint32_t none = 0;
        void* room = size == 0 ? static_cast<void*>(&none) : value.data.data();
        status = registry.queryValue(key, value.name, value.type, room, size);
    }
    expect(status, path);
    value.data.resize(size);
    return value;
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

}  // namespace

std::vector<StoredValue> valuesOf(Registry& registry, RegistryKey key, const KeyPath& path) {
    std::uint32_t longest = 0;
    expect(registry.queryInfoKey(key, longest), path);
    std::vector<StoredValue> values;
    std::string name(longest + 1, '\0');
    std::optional<ValueData> data;
    for (std::uint32_t index = 0;; ++index) {
        auto length = static_cast<std::uint32_t>(name.size());
        RegistryStatus status = registry.enumValue(key, index, name.data(), length, &data);
        // The longest name is told in characters, which may take more than a byte.
        constexpr std::size_t mostBytes = std::size_t{4} * 16'384;
        while (status == RegistryStatus::moreData && name.size() < mostBytes) {
            name.resize(2 * name.size());
            length = static_cast<std::uint32_t>(name.size());
            status = registry.enumValue(key, index, name.data(), length, &data);
        }
        if (status == RegistryStatus::noMoreItems) return values;
        expect(status, path);
        StoredValue value{name.substr(0, length), 0, {}};
        if (data) {
            value.type = data->type;
            value.data = std::move(data->bytes);
        } else {
            value = valueOf(registry, key, std::move(value.name), path);
        }
        values.push_back(std::move(value));
    }
}

std::string refusalText(const KeyPath& path, RegistryStatus status) {
    const auto number = std::to_string(static_cast<std::int32_t>(status));
    const std::string why = status == RegistryStatus::accessDenied ? "access is denied" : "the registry refuses";
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
    onKey(registry_, path, [&](RegistryKey key) { found = valuesOf(registry_, key, path); });
    return found;
}

std::vector<std::string> ProductStore::subkeys(const KeyPath& path) const {
    std::vector<std::string> found;
    onKey(registry_, path, [&](RegistryKey key) { found = subkeysOf(registry_, key, path); });
    return found;
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
    onKey(registry_, rootPath(id), [&](RegistryKey key) { readKeys(key, {}, product); });
    product.sortKeys();
    return product;
}

// NOLINTNEXTLINE(misc-no-recursion): the platform ends it at 512 levels.
void ProductStore::readKeys(RegistryKey key, StoredKey found, Product& product) const {
    const KeyPath place = found.path;
    KeyPath whole = rootPath(product.id);
    whole.insert(whole.end(), place.begin(), place.end());
    found.values = valuesOf(registry_, key, whole);
    product.keys.push_back(std::move(found));
    for (const std::string& name : subkeysOf(registry_, key, whole)) {
        OpenKey open(registry_);
        expect(registry_.openKey(key, name, toRead, open.key), below(whole, name));
        readKeys(open.key, {below(place, name), {}}, product);
    }
}

}  // namespace vrix
