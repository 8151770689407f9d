#include "pages/finish/create18.h"

#include "pages/edit/edit1.h"
#include "pages/finish/new_product.h"
#include "pages/wizard/create17.h"
#include "platform/clock.h"
#include "store/product_export.h"
#include "store/settings_file.h"

namespace vrix {

Create18::Create18(Toolkit& owner) : Page(owner, "Create18", "Finish") {
    NextBtnLbl.setCaption("Finish");
    Browse1Btn.action = [this] {
        if (CommonDialog1.ShowSave()) SettingsPath.setText(CommonDialog1.FileName);
    };
    NextBtn.action = [this] { nextThis18(); };
    BackBtn.action = [this] { backInGroup(toolkit.create17); };
}

void Create18::initThis() {
    showTask();
    Label2.setCaption(Edit ? "Export Settings" : "Finish");
    Label3.setCaption(Edit ? "Please select a filename to export the settings for this Product to."
                           : "This Product is now complete. Please click finish to save these settings and select a "
                             "filename below to export them.");
    SettingsPath.clear();
}

std::string Create18::regslashes(const std::string& path) { return escapedPath(path); }

void Create18::nextThis18() {
    Answer answer = Answer::ok;
    if (SettingsPath.text().empty()) {
        answer = screen().ask(
            "You have not entered a file to output the Product Settings To. If you continue without an output file, "
            "you will not be able to export this Product to another system.\r\nDo you wish to continue?",
            "Invalid Settings File", Buttons::okCancel);
    }
    if (answer != Answer::ok) return;
    if (Edit) {
        exportProduct();
    } else {
        finish();
    }
}

// The Product is stored before the file is written: with a bad path only the file is lost.
void Create18::finish() {
    const std::string timeStamp = toolkit.platform.clock.now();
    saveNewProduct(toolkit, timeStamp);
    if (!SettingsPath.text().empty()) writeNewProduct(toolkit, SettingsPath.text(), timeStamp);
    goToMain();
}

// Without a path nothing is written and the page stays, also after an OK.
void Create18::exportProduct() {
    if (SettingsPath.text().empty()) return;
    ProductExport(toolkit.settings, toolkit.selectedProduct)
        .write(toolkit.platform.files, SettingsPath.text(), toolkit.edit1.ProductList.text());
    endEdit();
}

}  // namespace vrix
