#pragma once

#include <string>

#include "shell/toolkit.h"

namespace vrix {

// Both read a new Product from the controls and tables of all pages, also of those that were never shown. Failure 9 or
// 13 where the tables of the Topics pages have fewer rows than their counts.

// Saves the Product in the develop tree, on top of what its key holds. A save that the store refuses is silent.
void saveNewProduct(const Toolkit& toolkit, const std::string& timeStamp);

// Writes its settings file. Failures as in Files.
void writeNewProduct(const Toolkit& toolkit, const std::string& path, const std::string& timeStamp);

}  // namespace vrix
