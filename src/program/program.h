#pragma once

#include <memory>
#include <vector>

#include "common/fixed.h"
#include "pages/edit/delete1.h"
#include "pages/edit/delete2.h"
#include "pages/edit/edit1.h"
#include "pages/edit/edit2.h"
#include "pages/finish/create18.h"
#include "pages/smartfields/create19.h"
#include "pages/smartfields/smart_field_module.h"
#include "pages/start/splash_screen.h"
#include "pages/start/toolkit_main.h"
#include "pages/topics/create20.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/topics/topic_order.h"
#include "pages/wizard/create1.h"
#include "pages/wizard/create17.h"
#include "pages/wizard/create2.h"
#include "pages/wizard/create3.h"
#include "pages/wizard/create4.h"
#include "pages/wizard/field_options_page.h"
#include "pages/wizard/fields_page.h"
#include "pages/wizard/optional_section.h"
#include "pages/wizard/product_options.h"
#include "shell/toolkit.h"
#include "store/cregistry_functions.h"
#include "store/product_reg.h"
#include "store/selected_product.h"

namespace vrix {

// The running program: owner of the store's modules and of the single instance of every window.
class Program : Fixed {
public:
    explicit Program(const Platform& platform);

    // Shows the splash, which leads on to the main screen. One event, to be run through runEvent().
    void start() { toolkit_.splashScreen.show(); }

    Toolkit& toolkit() { return toolkit_; }

private:
    // Makes a window, which lives as long as the program does, and enters it in the toolkit's list.
    template <class Window>
    Window& make();

    cRegistryFunctions settings_;
    ProductReg productReg_{settings_};
    SelectedProduct selectedProduct_;
    SmartFieldModule smartFieldModule_;
    TopicOrderModule topicOrderModule_{toolkit_};
    std::vector<std::unique_ptr<Form>> windows_;
    Toolkit toolkit_;
    ProductOptions options_{toolkit_};  // finds the controls of all windows
};

}  // namespace vrix
