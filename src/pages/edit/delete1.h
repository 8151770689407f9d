#pragma once

#include "shell/page.h"

namespace vrix {

// The choice of a Product to delete.
class Delete1 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Please Select A Product To Delete:"};
    ComboBox ProductList{Frame2, "ProductList", {0, 22, 400, 24}};  // installed tree first, then develop tree

    explicit Delete1(Toolkit& owner);
    void initThis() override;

private:
    void goToDelete2();
};

}  // namespace vrix
