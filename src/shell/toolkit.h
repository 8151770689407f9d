#pragma once

#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace vrix {

class Control;
class Form;
class cRegistryFunctions;
class ProductOptions;
class ProductReg;
struct SmartFieldModule;
class TopicOrderModule;

class SplashScreen;
class ToolkitMain;
class Edit1;
class Edit2;
class Delete1;
class Delete2;
class Create1;
class Create2;
class Create3;
class Create4;
class Create5;
class Create6;
class Create7;
class Create8;
class Create9;
class Create10;
class Create11;
class Create12;
class Create13;
class Create14;
class Create15;
class Create16;
class Create17;
class Create18;
class Create19;
class Create20;

// How the parts of the running program reach each other: its platform, the store's modules, and the one lasting
// instance of every window. The pages may name each other; nothing here is made or owned.
struct Toolkit {
    Platform platform;
    cRegistryFunctions& settings;
    ProductReg& productReg;
    SmartFieldModule& smartFieldModule;
    TopicOrderModule& topicOrderModule;

    SplashScreen& splashScreen;
    ToolkitMain& toolkitMain;
    Edit1& edit1;
    Edit2& edit2;
    Delete1& delete1;
    Delete2& delete2;
    Create1& create1;
    Create2& create2;
    Create3& create3;
    Create4& create4;
    Create5& create5;
    Create6& create6;
    Create7& create7;
    Create8& create8;
    Create9& create9;
    Create10& create10;
    Create11& create11;
    Create12& create12;
    Create13& create13;
    Create14& create14;
    Create15& create15;
    Create16& create16;
    Create17& create17;
    Create18& create18;
    Create19& create19;
    Create20& create20;

    ProductOptions& options;
    std::vector<Form*> forms;  // all windows
};

// The form of that name, and the control of that name on it. A name that is not there is a defect: std::logic_error.
Form& form(const Toolkit& toolkit, std::string_view name);
Control& control(const Toolkit& toolkit, std::string_view form, std::string_view name);

}  // namespace vrix
