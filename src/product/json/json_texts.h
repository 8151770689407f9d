#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

// Members keep the order in which they are written.
using Json = nlohmann::ordered_json;

// Texts and values of a store as JSON, and back. What is read is refused with its place, a JSON pointer.
class JsonTexts {
public:
    explicit JsonTexts(const Encoding& encoding) : encoding_(encoding) {}

    // A name: a string, or {"bytes": "C281"}.
    Json text(const std::string& bytes) const;
    std::string bytesOf(const Json& text, const std::string& place) const;

    // A value without its name: a string where the Toolkit would write it so, else with its type: {"type": "REG_SZ",
    // "text": "50%"} or {"type": "REG_DWORD", "bytes": "01000000"}.
    Json content(const StoredValue& value) const;
    StoredValue valueOf(std::string name, const Json& content, const std::string& place) const;

private:
    std::string fromUtf8(const std::string& text, const std::string& place) const;
    const Encoding& encoding_;
};

// Refuses what is no object, and members that are not among the known ones.
void expectMembers(const Json& object, const std::vector<std::string_view>& known, const std::string& place);
// The member, which must be there.
const Json& memberOf(const Json& object, const char* name, const std::string& place);
// A whole number from 0; refused otherwise.
std::size_t countOf(const Json& number, const std::string& place);
// The array; refused otherwise.
const Json& arrayOf(const Json& array, const std::string& place);

// The number that the text is, if it is one as the Toolkit writes them, from `least` on.
std::optional<std::int32_t> plainNumber(const std::string& text, std::int32_t least);

}  // namespace vrix
