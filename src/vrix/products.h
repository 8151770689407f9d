#pragma once

#include <memory>
#include <optional>
#include <string>

#include "product/json/product_json.h"
#include "vrix/run.h"
#include "vrix/store.h"

namespace vrix {

// ---- Products of a store ----

// The Product of that name, or of that key where no name fits; the remains of a deletion have only a key. Throws
// Refusal: none, or several, which are listed then.
ProductId findProduct(const ProductStore& store, const std::string& text);
// The same, but nothing where there is none.
std::optional<ProductId> lookFor(const ProductStore& store, const std::string& text);
// A Product's identity as JSON: "name", "key" and "tree".
Json identityOf(const ProductId& id);
// A Product's label for output, such as: "Site Safety Manual" (toolkit:SiteSafety).
std::string labelOf(const ProductId& id);

// ---- Products of files ----

// The code page of settings files. Throws Refusal where the system does not know it.
std::unique_ptr<Encoding> settingsEncoding(const Run& run);
// A file with a Product in any form: JSON, or a settings file. Throws Refusal, which names the file.
Product productOfFile(Run& run, const std::string& path);

// ---- Either ----

// Reads Products that the user names: from the store, or else from files. Opens the store lazily.
class ProductSource {
public:
    explicit ProductSource(Run& run) : run_(run) {}

    // The Product of the store; nothing where there is none, and so a file is meant.
    std::optional<ProductId> find(const std::string& text);
    Product read(const std::string& text);
    Store& store();

private:
    bool hasStore() const;

    Run& run_;
    std::optional<Store> store_;
};

}  // namespace vrix
