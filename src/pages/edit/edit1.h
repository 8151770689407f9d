#pragma once

#include "shell/page.h"
#include "store/selected_product.h"

namespace vrix {

// The choice of an existing Product for editing.
class Edit1 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Please Select A Product To Edit:"};
    ComboBox ProductList{Frame2, "ProductList", {0, 22, 400, 24}};  // installed tree first, then develop tree

    bool& isDeveloper = toolkit.selectedProduct.isDeveloper;
    std::string& ProductRegKey = toolkit.selectedProduct.ProductRegKey;

    explicit Edit1(Toolkit& owner);
    void initThis() override;

private:
    void nextEdit1();
};

}  // namespace vrix
