#pragma once

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

namespace vrix {

// The running program: owner of the store's modules and of the one lasting instance of every window.
class Program {
public:
    explicit Program(const Platform& platform);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Shows the splash, which leads on to the main screen. One event, to be run through runEvent().
    void start() { splashScreen_.show(); }

    Toolkit& toolkit() { return toolkit_; }

private:
    Toolkit toolkit_;
    cRegistryFunctions settings_;
    ProductReg productReg_;
    SmartFieldModule smartFieldModule_;
    TopicOrderModule topicOrderModule_;
    SplashScreen splashScreen_;
    ToolkitMain toolkitMain_;
    Edit1 edit1_;
    Edit2 edit2_;
    Delete1 delete1_;
    Delete2 delete2_;
    Create1 create1_;
    Create2 create2_;
    Create3 create3_;
    Create4 create4_;
    Create5 create5_;
    Create6 create6_;
    Create7 create7_;
    Create8 create8_;
    Create9 create9_;
    Create10 create10_;
    Create11 create11_;
    Create12 create12_;
    Create13 create13_;
    Create14 create14_;
    Create15 create15_;
    Create16 create16_;
    Create17 create17_;
    Create18 create18_;
    Create19 create19_;
    Create20 create20_;
    ProductOptions options_;
};

}  // namespace vrix
