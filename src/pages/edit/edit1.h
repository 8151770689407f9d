#pragma once

#include <string>

#include "shell/page.h"

namespace vrix {

// The choice of an existing Product. What is chosen here is what all pages work on in edit mode.
class Edit1 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Please Select A Product To Edit:"};
    ComboBox ProductList{Frame2, "ProductList", {0, 22, 400, 24}};  // installed tree first, then develop tree

    bool isDeveloper = false;   // the Product lies in the develop tree
    std::string ProductRegKey;  // its root below the family key

    explicit Edit1(Toolkit& owner);
    void initEdit1();

    // The section in which the names of the selected Product's tree stand.
    const char* listSection() const { return isDeveloper ? "Toolkit\\Products" : "Products"; }

private:
    void load() override { initEdit1(); }
    void nextEdit1();
    void backEdit1() { goToMain(); }
};

// Fills a list with all Products and makes the first current. With no Product at all the page gives way to the main
// screen, which tells the user, and the answer is false.
bool fillProductList(Toolkit& toolkit, Form& page, ComboBox& list);

}  // namespace vrix
