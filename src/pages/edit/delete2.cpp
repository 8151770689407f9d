#include "pages/edit/delete2.h"

#include "pages/edit/delete1.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"

namespace vrix {

Delete2::Delete2(Toolkit& owner) : Page(owner, "Delete2", "Delete An Existing Product", "Confirm Product Deletion") {
    NextBtnLbl.setCaption("Finish");
    NextBtn.action = [this] { DeleteProduct(); };
    BackBtn.action = [this] { returnToDelete1(); };
    ExitBtn.action = [this] { exitToMain(); };
}

// Children go before parents, since a key with subkeys is not deleted, and the list row goes last: an interrupted
// delete leaves a listed Product with missing parts, not an unlisted remnant. What else lies below the root stays.
void Delete2::DeleteProduct() {
    const ComboBox& list = toolkit.delete1.ProductList;
    const bool develop = list.listIndex() >= toolkit.productReg.installedRows();
    const std::string section = develop ? "Toolkit\\Products" : "Products";
    const std::string name = list.text();
    cRegistryFunctions& settings = toolkit.settings;
    const std::string key = settings.GetSetting(application, section, name, "");
    const std::string root = develop ? "Toolkit\\" + key : key;
    for (const char* below : {"\\Options", "\\Topics", "\\SmartFields", "\\Dependencies\\IndexTable",
                              "\\Dependencies\\Matrix", "\\Dependencies", ""}) {
        settings.DeleteSetting(application, root + below, "");
    }
    settings.DeleteSetting(application, section, name);
    goToMain();
}

void Delete2::returnToDelete1() { goTo(toolkit.delete1); }

}  // namespace vrix
