#pragma once

#include "shell/page.h"

namespace vrix {

// What the built document is based on, and where it goes by default.
class Create17 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "Product Template:"};
    TextBox TemplatePath{Frame2, "TemplatePath", {0, 22, -102, 24}};
    ImageButton Browse1Btn{Frame2, "Browse1Btn", {-88, 20, 88, 28}, "Browse"};
    Label Label4{Frame2, "Label4", {0, 64, 0, 18}, "Default Output File:"};
    TextBox DefaultOutputFile{Frame2, "DefaultOutputFile", {0, 86, -102, 24}};
    ImageButton Browse2Btn{Frame2, "Browse2Btn", {-88, 84, 88, 28}, "Browse"};
    CheckBox AllowChangeCourseName{
        Frame2, "AllowChangeCourseName", {0, 136, 0, 22}, "Allow User To Change The Product Title"};
    CheckBox ShowCourseName{Frame2, "ShowCourseName", {0, 168, 0, 22}, "Display Product Title On Screen"};

    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "", "", ".doc"};  // one for both, with a title for each

    explicit Create17(Toolkit& owner);
    void initThis() override;

private:
    void browse1This17();
    void browse2This17();
    void nextThis17();
    Form& pageBefore() const;
    void exitThis17();
};

}  // namespace vrix
