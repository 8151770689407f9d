#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "product/product.h"

namespace vrix {

// A Topic with the names of those that it depends on. A number that fits no Topic stands as "#7".
struct TopicView {
    std::string name;
    std::string file;
    std::vector<std::string> dependsOn{};
};

// A Product for reading: texts alone. What is odd in it shows as far as a text can.
struct ProductView {
    ProductId id;
    std::string created;
    std::vector<std::pair<std::string, std::string>> options;  // the 88, in their order, missing ones left out
    std::vector<TopicView> topics;
    std::vector<TopicView> addedTopics;
    std::vector<std::string> smartFields;
};

ProductView viewOf(const Product& product);

// The numbers of a dependency row, as texts: taken apart at each blank.
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
