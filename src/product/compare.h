#pragma once

#include <optional>
#include <string>
#include <vector>

#include "product/product.h"

namespace vrix {

// The groups of a Product's settings, for output.
enum class Group { identity, options, topics, addedTopics, dependencies, smartFields, other };

// The group's name for people and machines, such as "added topics".
const char* groupName(Group group);
// The group to which a key of a Product belongs.
Group groupOf(const KeyPath& path);

// One difference. `what` is a value's name, a Topic, or "order"; in other keys the path in front of it. A value that is
// no plain text is shown with its type and bytes. A missing value is nothing.
struct Difference {
    Group group;
    std::string what;
    std::optional<std::string> left;
    std::optional<std::string> right;
};

// The differences of two Products in the order of the groups. Dates of creation are no difference, nor is a key without
// values, nor the order of values where it says nothing. An empty name is unknown and differs from none. Types count.
std::vector<Difference> compare(const Product& left, const Product& right);

// A value for output: a plain text as it is, anything else with its type, as "REG_DWORD 01 00 00 00".
std::string shown(const StoredValue& value);

// "REG_SZ" and its like, or the number.
std::string typeName(std::uint32_t type);

}  // namespace vrix
