#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "product/product.h"

namespace vrix {

// The Products of a registry, below HKEY_LOCAL_MACHINE\Software\Vrix. Every call reads the registry again, without a
// cache; nothing here writes. A key that is not there reads as empty. Any other refusal is Refusal (refused), which
// names key and status.
class ProductStore {
public:
    explicit ProductStore(Registry& registry) : registry_(registry) {}

    // The rows of both lists in the order of the store, the installed ones first. A row whose text is empty comes with
    // an empty key.
    std::vector<ProductId> list() const;
    // The roots that no row names, each as a Product without a name: the remains of deletions.
    std::vector<ProductId> leftovers() const;
    // Whether the Product's root is there.
    bool hasRoot(const ProductId& id) const;
    // The Product with that tree and key, and the name as given. Names and keys are not looked up in the list.
    Product read(const ProductId& id) const;
    // One key, by names from the family key downwards.
    std::vector<StoredValue> values(const KeyPath& path) const;
    std::vector<std::string> subkeys(const KeyPath& path) const;
    // Visits a key, if it is there, and all below it in preorder, with its path from the family key downwards.
    using Visit = std::function<void(StoredKey key)>;
    void walk(const KeyPath& path, const Visit& visit) const;

    // How many values of those keys no call can read.
    std::size_t unreachable(const KeyPath& path) const;

    Registry& registry() const { return registry_; }

private:
    Registry& registry_;
};

// Opens a key below the family key, name by name, so that no path is too long for one call. With `make` all keys on the
// way are made. The key is the caller's to close, and 0 unless the status is success.
RegistryStatus openBelowFamily(Registry& registry, const KeyPath& path, std::uint32_t rights, bool make,
                               RegistryKey& key);
// The sentence for a refusal, such as "Software\Vrix\K: access denied (5)".
std::string refusalText(const KeyPath& path, RegistryStatus status);

}  // namespace vrix
