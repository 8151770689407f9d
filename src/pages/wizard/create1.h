#pragma once

#include "shell/page.h"

namespace vrix {

// The welcome to the wizard.
class Create1 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 24}, "Welcome To The Create A Product Wizard", Look::subheading};
    Label Label4{Frame2,
                 "Label4",
                 {0, 40, 0, 54},
                 "This Wizard will take you through the process of creating a Product for Vrix step-by-step. At each "
                 "stage you will be presented with a range of configurable options for you to set in order to aid the "
                 "users of Vrix."};
    Label Label5{Frame2,
                 "Label5",
                 {0, 102, 0, 84},
                 "In order to make this process as easy for you as possible, it is suggested that before running this "
                 "Wizard, you ensure that you have already written the individual Topics you wish to include in the "
                 "Product and that they are in a location that is reachable from this computer, as well as from any "
                 "that may be compiling this Product in Vrix."};

    explicit Create1(Toolkit& owner);
};

}  // namespace vrix
