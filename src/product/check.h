#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "product/product.h"
#include "product/product_store.h"

namespace vrix {

// How bad it is: the Toolkit or one of its pages ends; something is lost on the way or does not work; worth knowing.
enum class Severity { error, warning, note };
const char* severityName(Severity severity);

// A kind of finding.
struct FindingKind {
    const char* name;  // short and stable, such as "missing-option"
    Severity severity;
    const char* what;     // one sentence: what is wrong
    const char* advice;   // one sentence: what to do
    const char* explain;  // a paragraph: why it matters
};

// All kinds.
std::span<const FindingKind> findingKinds();
// The kind of that name, or null.
const FindingKind* findFindingKind(std::string_view name);

// One finding. `place` is a path below the family key.
struct Finding {
    const FindingKind* kind;
    std::string place;
    std::string detail{};  // the value found, where that helps
};

// The findings in a Product by itself, in the order of the Product.
std::vector<Finding> checkProduct(const Product& product);
// The files that the Product names and that are not there.
std::vector<Finding> checkFiles(const Product& product, Files& files);
// The findings between Products: rows, keys, leftovers, counts.
std::vector<Finding> checkStore(const ProductStore& store);
// Findings for Products that are also, or only, in the registry's other view.
std::vector<Finding> checkViews(const ProductStore& store, const ProductStore& otherView);

}  // namespace vrix
