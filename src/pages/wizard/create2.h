#pragma once

#include "shell/page.h"

namespace vrix {

// The identity of a Product: its name, its key, its default title. In create mode it stores nothing; in edit mode it
// renames the Product, whose key stays as it is.
class Create2 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Enter a name for this Product:"};
    TextBox ProductName{Frame2, "ProductName", {0, 22, 400, 24}};
    Label Label4{Frame2, "Label4", {0, 68, 0, 18}, "Enter a name to uniquely identify the Product settings:"};
    TextBox ProductKey{Frame2, "ProductKey", {0, 90, 400, 24}};
    Label Label5{Frame2, "Label5", {0, 136, 0, 18}, "Enter a default Product title:"};
    TextBox DefaultCourseName{Frame2, "DefaultCourseName", {0, 158, 400, 24}};

    explicit Create2(Toolkit& owner);
    void initThis() override;

private:
    void nextThis2();
    void rename();
};

}  // namespace vrix
