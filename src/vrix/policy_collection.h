#pragma once

#include <string>

#include "product/product.h"

namespace vrix {

// The Product as a collection of Group Policy preferences: a Registry.xml in UTF-8 with one item for each value, which
// replaces it, the row of the list first. The same Product gives the same bytes. With `narrow` the items are for the
// registry of 32-bit programs on 64-bit clients. Throws Refusal (malformed), which names the place, for a text that XML
// cannot hold and for a type that the collection has no form for.
std::string policyCollection(const Product& product, bool narrow);

}  // namespace vrix
