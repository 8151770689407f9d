#pragma once

#include <nlohmann/json.hpp>
#include <string_view>

namespace vrix {

// Members keep the order in which they are written.
using Json = nlohmann::ordered_json;

// The one reader of JSON: UTF-8, or UTF-16 or UTF-8 with its mark. Throws Refusal (malformed), which tells line or
// member, for what is no JSON, a member that stands twice in its object, a number out of range, and more than 100
// levels.
Json parsedJson(std::string_view text);

}  // namespace vrix
