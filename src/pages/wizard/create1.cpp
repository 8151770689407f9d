#include "pages/wizard/create1.h"

#include "pages/wizard/create2.h"

namespace vrix {

Create1::Create1(Toolkit& owner) : Page(owner, "Create1", "Create A Product Wizard", "Welcome Screen") {
    NextBtn.action = [this] { nextThis1(); };
    BackBtn.action = [this] { exitThis1(); };
    ExitBtn.action = [this] { exitThis1(); };
}

void Create1::nextThis1() {
    goTo(toolkit.create2);
    toolkit.create2.initThis2();
}

}  // namespace vrix
