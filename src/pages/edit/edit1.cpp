#include "pages/edit/edit1.h"

#include "pages/edit/edit2.h"
#include "pages/start/toolkit_main.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"

namespace vrix {

Edit1::Edit1(Toolkit& owner) : Page(owner, "Edit1", "Edit A Product", "Select A Product") {
    NextBtn.action = [this] { nextEdit1(); };
    BackBtn.action = [this] { backEdit1(); };
    ExitBtn.action = [this] { backEdit1(); };
}

bool fillProductList(Toolkit& toolkit, Form& page, ComboBox& list) {
    ProductReg& reg = toolkit.productReg;
    reg.GetProducts();
    if (reg.CountProducts == 0) {
        page.setEnabled(false);
        page.hide();
        toolkit.toolkitMain.show();
        return false;
    }
    const int installed = reg.installedRows();
    for (int i = 0; i < reg.CountProducts; ++i) {
        list.addItem(i < installed ? reg.Products.name(i) : reg.DevelopProducts.name(i - installed));
    }
    list.setListIndex(0);
    return true;
}

void Edit1::initEdit1() {
    ProductList.clear();
    ProductRegKey.clear();
    fillProductList(toolkit, *this, ProductList);
}

void Edit1::nextEdit1() {
    goTo(toolkit.edit2);
    toolkit.edit2.Label2.setCaption(ProductList.text());
    isDeveloper = ProductList.listIndex() >= toolkit.productReg.installedRows();
    const std::string key = toolkit.settings.GetSetting(application, listSection(), ProductList.text(), "");
    ProductRegKey = isDeveloper ? "Toolkit\\" + key : key;
}

}  // namespace vrix
