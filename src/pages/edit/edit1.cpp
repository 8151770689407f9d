#include "pages/edit/edit1.h"

#include "pages/edit/edit2.h"
#include "pages/edit/product_list.h"

namespace vrix {

Edit1::Edit1(Toolkit& owner) : Page(owner, "Edit1", "Select A Product", editTask) {
    NextBtn.action = [this] { nextEdit1(); };
    BackBtn.action = [this] { goToMain(); };
}

void Edit1::initThis() {
    ProductRegKey.clear();
    fillProductList(toolkit, ProductList);
}

void Edit1::nextEdit1() {
    goTo(toolkit.edit2);
    toolkit.edit2.Label2.setCaption(ProductList.text());
    toolkit.selectedProduct = chosenProduct(toolkit, ProductList);
}

}  // namespace vrix
