#pragma once

#include <nlohmann/json.hpp>
#include <string_view>

namespace vrix {

// Members keep the order in which they are written.
using Json = nlohmann::ordered_json;

// The only JSON parser: UTF-8, or UTF-16 or UTF-8 with a byte order mark. Throws Refusal (malformed), which names line
// or member, for invalid JSON, a duplicate member, a number out of range, and more than 100 levels.
Json parsedJson(std::string_view text);

}  // namespace vrix
