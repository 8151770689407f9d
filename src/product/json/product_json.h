#pragma once

#include <string>
#include <string_view>

#include "product/json/json_reader.h"
#include "product/product.h"

namespace vrix {

// The Product as JSON, one object. The same Product always gives the same JSON.
//
// Members: "name", "key", "tree" ("toolkit" or "installed"), "created", "options" (true and false for switches, numbers
// for positions), "topics" and "addedTopics" (each with "name", "file" and "dependsOn", the names of other Topics),
// "smartFields", and "other" for the rest, so that nothing is lost or duplicated. A name that holds an unpaired
// surrogate is {"utf16": "0041D800"}; a value that the Toolkit would not write so is {"type": "REG_SZ", "text": "50%"},
// {"type": "REG_SZ", "utf16": "0041D8000000"} or {"type": "REG_DWORD", "bytes": "01000000"}. productSchema() describes
// all forms.
Json jsonOf(const Product& product);

// The Product of such JSON. Throws Refusal (malformed), which names the place as a JSON pointer, for unknown or missing
// members, wrong types, and keys that no Product may have.
Product productOf(const Json& json);

// The same as text: UTF-8, indented, with a line end. parsedJson() reads it.
std::string toJson(const Product& product);
Product fromJson(std::string_view json);

// The JSON schema (2020-12) of a Product's JSON.
Json productSchema();

}  // namespace vrix
