#pragma once

#include <string>
#include <string_view>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

enum class JsonForm { indented, oneLine };

// The Product as JSON in UTF-8, one object, indented with a line end behind it, or as one line without. The same
// Product always gives the same bytes.
//
// Members: "name", "key", "tree" ("toolkit" or "installed"), "created", "options" (true and false for switches, numbers
// for positions), "topics" and "addedTopics" (each with "name", "file" and "dependsOn", the names of other Topics),
// "smartFields", and "other" for what these cannot tell, so that nothing is lost and nothing stands twice. A text with
// bytes that stand for no character is {"bytes": "C281"}; a value of a type that the Toolkit would not give it is
// {"type": "REG_DWORD", "bytes": "01000000"}. productSchema() tells all forms.
std::string toJson(const Product& product, const Encoding& encoding, JsonForm form = JsonForm::indented);

// The Product of such a text. Throws Malformed, which tells the place as a JSON pointer, for what is no JSON, unknown,
// missing or doubled members, wrong types, characters that the code page lacks, and keys that no Product may have.
Product fromJson(std::string_view json, const Encoding& encoding);

// The JSON schema (2020-12) of such a text, indented, with a line end behind it.
std::string productSchema();

}  // namespace vrix
