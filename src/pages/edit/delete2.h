#pragma once

#include "shell/page.h"

namespace vrix {

// The confirmation of a deletion, and the deletion itself.
class Delete2 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Are you sure you want to delete:"};
    Label DeleteProductTxt{Frame2, "DeleteProductTxt", {0, 26, 0, 58}, "Product", Look::subheading};
    Label Label5{Frame2,
                 "Label5",
                 {0, 98, 0, 80},
                 "All Product settings will be removed and the Product will no longer be available in Vrix. However, "
                 "the individual topics comprising the Product will not be removed - if you wish to remove these as "
                 "well, you must delete them from the relevent locations."};

    explicit Delete2(Toolkit& owner);

private:
    void DeleteProduct();
};

}  // namespace vrix
