#include "pages/wizard/create1.h"

#include "pages/wizard/create2.h"

namespace vrix {

Create1::Create1(Toolkit& owner) : Page(owner, "Create1", "Welcome Screen") {
    NextBtn.action = [this] { goForward(toolkit.create2); };
    BackBtn.action = [this] { goToMain(); };
}

}  // namespace vrix
