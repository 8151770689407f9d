#pragma once

#include "shell/page.h"

namespace vrix {

// The three cover pages: paths and names. First page of its group; Create4 ends it.
class Create3 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Cover Page 1", Look::section};
    Label PathLbl1{Frame2, "PathLbl1", {0, 26, 56, 18}, "Path:"};
    TextBox CoverPage1{Frame2, "CoverPage1", {60, 23, -102, 24}};
    ImageButton Browse1Btn{Frame2, "Browse1Btn", {-88, 21, 88, 28}, "Browse"};
    Label NameLbl1{Frame2, "NameLbl1", {0, 58, 56, 18}, "Name:"};
    TextBox CoverPage1Name{Frame2, "CoverPage1Name", {60, 55, -102, 24}};

    Label Label4{Frame2, "Label4", {0, 104, 0, 18}, "Cover Page 2", Look::section};
    Label PathLbl2{Frame2, "PathLbl2", {0, 130, 56, 18}, "Path:"};
    TextBox CoverPage2{Frame2, "CoverPage2", {60, 127, -102, 24}};
    ImageButton Browse2Btn{Frame2, "Browse2Btn", {-88, 125, 88, 28}, "Browse"};
    Label NameLbl2{Frame2, "NameLbl2", {0, 162, 56, 18}, "Name:"};
    TextBox CoverPage2Name{Frame2, "CoverPage2Name", {60, 159, -102, 24}};

    Label Label5{Frame2, "Label5", {0, 208, 0, 18}, "Cover Page 3", Look::section};
    Label PathLbl3{Frame2, "PathLbl3", {0, 234, 56, 18}, "Path:"};
    TextBox CoverPage3{Frame2, "CoverPage3", {60, 231, -102, 24}};
    ImageButton Browse3Btn{Frame2, "Browse3Btn", {-88, 229, 88, 28}, "Browse"};
    Label NameLbl3{Frame2, "NameLbl3", {0, 266, 56, 18}, "Name:"};
    TextBox CoverPage3Name{Frame2, "CoverPage3Name", {60, 263, -102, 24}};

    // One for all three.
    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "Browse For Cover Page", wordDocuments, ".doc", "C:\\"};

    explicit Create3(Toolkit& owner);
    void initThis() override;
    // The six boxes in the order in which they are stored.
    std::vector<Control*> boxes();

private:
    bool namesRepeat() const;
    bool nameMissing() const;
    void nextThis3();
};

}  // namespace vrix
