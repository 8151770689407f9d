#pragma once

#include "shell/page.h"

namespace vrix {

// What the user of a document may do about its cover page. Ends the group of Create3.
class Create4 final : public Page {
public:
    CheckBox AllowNoCoverPage{Frame2, "AllowNoCoverPage", {0, 0, 0, 22}, "Allow User To Disable The Cover Page"};
    CheckBox AllowUseAlternateCoverPage{Frame2,
                                        "AllowUseAlternateCoverPage",
                                        {0, 32, 0, 22},
                                        "Allow User To Use An Alternate Cover Page To The Default"};
    CheckBox DefaultCover{Frame2, "DefaultCover", {0, 64, 0, 22}, "Cover Page Selected By Default"};
    Label Label3{Frame2, "Label3", {0, 108, 0, 18}, "Default Cover Page:"};
    ComboBox DefaultCoverPage{Frame2, "DefaultCoverPage", {0, 130, 400, 24}};

    explicit Create4(Toolkit& owner);
    void initThis() override;

private:
    Page& group() override;
    void nextThis4();
};

}  // namespace vrix
