#pragma once

#include <map>
#include <string>
#include <vector>

#include "product/product.h"

namespace vrix {

// The numbers of a dependency row, as texts: split at each space.
std::vector<std::string> numbersOf(const std::string& row);

// Dependencies by the names of Topics. A number that fits no Topic stands as "#7".
class DependencyNames {
public:
    explicit DependencyNames(const Product& product);

    std::string topicOf(const std::string& number) const;
    // The Topics of a dependency row, in its order.
    std::vector<std::string> named(const std::string& row) const;
    // The Topics on which one depends.
    std::vector<std::string> of(const std::string& topic) const;

private:
    std::map<std::string, std::string> indexes_;  // by Topic
    std::map<std::string, std::string> rows_;     // by index
    std::map<std::string, std::string> names_;    // by index; where two Topics share one, the first
};

}  // namespace vrix
