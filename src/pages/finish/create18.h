#pragma once

#include "shell/page.h"

namespace vrix {

// The last page of the wizard, where a new Product reaches the store; and, in edit mode, the export of an existing one.
class Create18 final : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 44}, ""};
    Label Label4{Frame2, "Label4", {0, 64, 0, 18}, "Export Settings"};
    TextBox SettingsPath{Frame2, "SettingsPath", {0, 86, -102, 24}};
    ImageButton Browse1Btn{Frame2, "Browse1Btn", {-88, 84, 88, 28}, "Browse"};

    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "Browse For Export File", "Kelmarsh Settings (*.kls)|*.kls",
                               ".kls"};
    bool Edit = false;

    explicit Create18(Toolkit& owner);
    void initThis18();
    // Escapes a path for a settings file.
    static std::string regslashes(const std::string& path);

private:
    void load() override { initThis18(); }
    void browse1This18();
    void nextThis18();
    void finish();
    void exportProduct();
};

}  // namespace vrix
