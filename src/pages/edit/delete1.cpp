#include "pages/edit/delete1.h"

#include "pages/edit/delete2.h"
#include "pages/edit/product_list.h"

namespace vrix {

Delete1::Delete1(Toolkit& owner) : Page(owner, "Delete1", "Select A Product", deleteTask) {
    NextBtn.action = [this] { goToDelete2(); };
    BackBtn.action = [this] { goToMain(); };
}

void Delete1::initThis() { fillProductList(toolkit, ProductList); }

void Delete1::goToDelete2() {
    goTo(toolkit.delete2);
    toolkit.delete2.DeleteProductTxt.setCaption(ProductList.text());
}

}  // namespace vrix
