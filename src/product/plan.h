#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "product/product.h"
#include "product/product_store.h"

namespace vrix {

// One change of the store. `path` counts from the family key.
struct StoreChange {
    enum class Kind { makeKey, setValue, removeValue, removeKey };

    Kind kind;
    KeyPath path;
    StoredValue value{};                  // to set or to remove
    std::optional<StoredValue> before{};  // of a value to set: the value there now
};

// The changes in the order in which they are made: rows of the list, removed keys, values. If interrupted anywhere,
// they leave a Product that the next plan of the same kind repairs. A removed Product loses its row last, so a partly
// removed one is still listed.
using Plan = std::vector<StoreChange>;

// What becomes of values and keys that the Product does not name.
enum class Unnamed { removed, kept };

// What makes the store's Product of the same tree and key as the given one. It writes differences only: the plan is
// empty where compare() finds none, and none of this holds either. The store's date of creation stays; only where it
// has none the given one is written. Other rows of the list that name the same key are removed. Empty keys come with a
// Product that is new in the store. Where the order of values says something, those behind the first that stands wrong
// are removed and set again, one by one. Throws Refusal (refused) where the Product may not be written: its key stands
// in the place of a list or tree, its root holds another Product's or lies in it, its name belongs to another Product,
// or it has no name and the store knows none.
Plan planApply(const ProductStore& store, Product product, Unnamed unnamed);

// The two parts of restoring a whole store: what makes both lists equal to another store's, and what makes the settings
// below a Product's root what the given ones are. Neither looks whether Products share a root.
Plan planLists(const ProductStore& store, const ProductStore& wanted, Unnamed unnamed);
Plan planSettings(const ProductStore& store, Product product, Unnamed unnamed);

// What removes the Product, all that its root holds and all rows of the list that name its key. Throws as above. Empty
// where there is neither.
Plan planRemoval(const ProductStore& store, const ProductId& id);

// Makes the changes one after the other and adds to `made` those that are made. Throws Refusal (refused) at the first
// that the registry refuses; those before it stay made.
void perform(Registry& registry, const Plan& plan, std::size_t* made = nullptr);

}  // namespace vrix
