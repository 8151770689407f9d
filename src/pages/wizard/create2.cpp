#include "pages/wizard/create2.h"

#include "pages/edit/edit1.h"
#include "pages/wizard/create1.h"
#include "pages/wizard/create3.h"
#include "pages/wizard/product_options.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

Create2::Create2(Toolkit& owner) : Page(owner, "Create2", "Initial Product Setup") {
    // While a new Product's name is typed, its key follows.
    ProductName.onChange = [this] {
        if (!Edit) ProductKey.setText(ProductName.text());
    };
    NextBtn.action = [this] { nextThis2(); };
    BackBtn.action = [this] { backInGroup(toolkit.create1); };
}

void Create2::initThis() {
    showTaskOfLastPage();
    ProductKey.setEnabled(!Edit);
    if (Edit) {
        const std::string name = toolkit.edit1.ProductList.text();
        ProductKey.setText(toolkit.settings.GetSetting(application, toolkit.selectedProduct.listSection(), name, ""));
        ProductName.setText(name);
        toolkit.options.load({&DefaultCourseName});
    } else {
        ProductKey.clear();
        ProductName.clear();
        DefaultCourseName.clear();
    }
}

void Create2::nextThis2() {
    if (ProductKey.text().empty()) {
        tell("Invalid Product Key", "Please enter a Product key for the Product settings to be stored under.");
        return;
    }
    if (ProductName.text().empty()) {
        tell("Invalid Product Name", "Please enter a Product name.");
        return;
    }
    if (Edit) {
        rename();
        goToHub();  // edit mode stays on, on purpose
        return;
    }
    // Only a Product of the installed tree has this value. The "Creation Date" of a new one is another, on purpose.
    if (!toolkit.settings.GetSetting(application, ProductKey.text(), "CreationDate", "").empty()) {
        ProductKey.clear();
        tell("Invalid Product Key", "Sorry - this Product key already exists. Please enter another, unique, key.");
        return;
    }
    goForward(toolkit.create3);
}

void Create2::rename() {
    const char* section = toolkit.selectedProduct.listSection();
    toolkit.settings.DeleteSetting(application, section, toolkit.edit1.ProductList.text());
    toolkit.options.remove({&DefaultCourseName});
    toolkit.settings.SaveSetting(application, section, ProductName.text(), ProductKey.text());
    toolkit.options.save({&DefaultCourseName});
}

}  // namespace vrix
