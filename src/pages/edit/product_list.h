#pragma once

#include "forms/inputs.h"
#include "shell/toolkit.h"
#include "store/selected_product.h"

namespace vrix {

// Fills a list with all Products, the installed tree first, and makes the first one current. With no Product at all the
// main screen replaces the list's page, and tells the user.
void fillProductList(const Toolkit& toolkit, ComboBox& list);

// The Product at the current row of such a list. The row alone decides on its tree; a name that its tree does not list
// any more gives an empty key.
SelectedProduct chosenProduct(const Toolkit& toolkit, const ComboBox& list);

}  // namespace vrix
