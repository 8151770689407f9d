#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "product/json/json_reader.h"
#include "product/product.h"

namespace vrix {

// Texts and values of a store as JSON, and back. What is read is refused with its place, a JSON pointer.

// A name: a string, or {"utf16": "0041D800"} where it holds an unpaired surrogate.
Json jsonName(const std::string& name);
std::string readName(const Json& json, const std::string& place);

// A value without its name: a string where the Toolkit would write it so, else with its type. A text is "text" without
// its terminator, or the whole data as "utf16" if it has no terminator or holds an unpaired surrogate. Data of other
// types are "bytes".
Json jsonContent(const StoredValue& value);
StoredValue readContent(std::string name, const Json& json, const std::string& place);

// Refuses what is no object, and members that are not among the known ones.
void expectMembers(const Json& object, const std::vector<std::string_view>& known, const std::string& place);
// The member, which must be there.
const Json& memberOf(const Json& object, const char* name, const std::string& place);
// The array; refused otherwise.
const Json& arrayOf(const Json& array, const std::string& place);

// The number that the text is, if it is one as the Toolkit writes them, from `least` on.
std::optional<std::int32_t> plainNumber(const std::string& text, std::int32_t least);

}  // namespace vrix
