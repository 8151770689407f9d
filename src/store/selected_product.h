#pragma once

#include <string>

namespace vrix {

// The Product that was chosen for editing: all pages in edit mode work on it.
struct SelectedProduct {
    bool isDeveloper = false;   // it lies in the develop tree
    std::string ProductRegKey;  // its root below the family key

    // The section that lists the names of its tree.
    const char* listSection() const { return isDeveloper ? "Toolkit\\Products" : "Products"; }
};

}  // namespace vrix
