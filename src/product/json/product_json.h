#pragma once

#include <string>
#include <string_view>

#include "product/product.h"

namespace vrix {

enum class JsonForm { indented, oneLine };

// The Product as JSON in UTF-8, one object, indented with a line end behind it, or as one line without. The same
// Product always gives the same bytes.
//
// Members: "name", "key", "tree" ("toolkit" or "installed"), "created", "options" (true and false for switches, numbers
// for positions), "topics" and "addedTopics" (each with "name", "file" and "dependsOn", the names of other Topics),
// "smartFields", and "other" for what these cannot tell, so that nothing is lost and nothing stands twice. A name that
// holds half a character is {"utf16": "0041D800"}; a value that the Toolkit would not write so is {"type": "REG_SZ",
// "text": "50%"}, {"type": "REG_SZ", "utf16": "0041D8000000"} or {"type": "REG_DWORD", "bytes": "01000000"}.
// productSchema() tells all forms.
std::string toJson(const Product& product, JsonForm form = JsonForm::indented);

// The Product of such a text, in UTF-8, or in UTF-16 or UTF-8 with its mark. Throws Refusal (malformed), which tells
// the place as a JSON pointer, for what is no JSON, unknown, missing or doubled members, wrong types, and keys that no
// Product may have.
Product fromJson(std::string_view json);

// The JSON schema (2020-12) of such a text, indented, with a line end behind it.
std::string productSchema();

}  // namespace vrix
