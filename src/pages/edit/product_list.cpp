#include "pages/edit/product_list.h"

#include "pages/start/toolkit_main.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"

namespace vrix {

void fillProductList(const Toolkit& toolkit, ComboBox& list) {
    list.clear();
    ProductReg& reg = toolkit.productReg;
    reg.GetProducts();
    if (reg.CountProducts == 0) {
        list.form().setEnabled(false);
        list.form().hide();
        toolkit.toolkitMain.show();
        return;
    }
    const int installed = reg.installedRows();
    for (int i = 0; i < reg.CountProducts; ++i) {
        list.addItem(i < installed ? reg.Products.name(i) : reg.DevelopProducts.name(i - installed));
    }
    list.setListIndex(0);
}

SelectedProduct chosenProduct(const Toolkit& toolkit, const ComboBox& list) {
    SelectedProduct product;
    product.isDeveloper = list.listIndex() >= toolkit.productReg.installedRows();
    if (product.isDeveloper) product.ProductRegKey = "Toolkit\\";
    product.ProductRegKey += toolkit.settings.GetSetting(application, product.listSection(), list.text(), "");
    return product;
}

}  // namespace vrix
