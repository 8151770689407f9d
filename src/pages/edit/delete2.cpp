#include "pages/edit/delete2.h"

#include "pages/edit/delete1.h"
#include "pages/edit/product_list.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

Delete2::Delete2(Toolkit& owner) : Page(owner, "Delete2", "Confirm Product Deletion", deleteTask) {
    firstFocus = &BackBtn;  // Enter alone deletes nothing
    NextBtnLbl.setCaption("Finish");
    NextBtn.action = [this] { DeleteProduct(); };
    BackBtn.action = [this] { returnToDelete1(); };
    ExitBtn.action = [this] { exitToMain(); };
}

// Keys are deleted before their parents, since a key with subkeys is not deleted. The list row is deleted last: after
// an interrupted delete the Product is still listed and can be deleted again. Other keys below its root stay.
void Delete2::DeleteProduct() {
    const ComboBox& list = toolkit.delete1.ProductList;
    const SelectedProduct product = chosenProduct(toolkit, list);
    cRegistryFunctions& settings = toolkit.settings;
    for (const char* below : {"\\Options", "\\Topics", "\\SmartFields", "\\Dependencies\\IndexTable",
                              "\\Dependencies\\Matrix", "\\Dependencies", ""}) {
        settings.DeleteSetting(application, product.ProductRegKey + below, "");
    }
    settings.DeleteSetting(application, product.listSection(), list.text());
    goToMain();
}

void Delete2::returnToDelete1() { goTo(toolkit.delete1); }

}  // namespace vrix
