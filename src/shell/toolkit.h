#pragma once

#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace vrix {

class Control;
class Form;

// How the parts of the running program reach each other: its platform, the store's modules, and the one lasting
// instance of every window. Nothing here is owned. The members also declare their classes; whoever uses one includes
// its header.
struct Toolkit {
    Platform platform;
    class cRegistryFunctions& settings;
    class ProductReg& productReg;
    struct SelectedProduct& selectedProduct;
    struct SmartFieldModule& smartFieldModule;
    class TopicOrderModule& topicOrderModule;
    class ProductOptions& options;
    std::vector<Form*> forms;  // all windows, in the order in which they stand here

    class SplashScreen& splashScreen;
    class ToolkitMain& toolkitMain;
    class Create1& create1;
    class Create2& create2;
    class Create3& create3;
    class Create4& create4;
    class Create5& create5;
    class Create6& create6;
    class Create7& create7;
    class Create8& create8;
    class Create9& create9;
    class Create10& create10;
    class Create11& create11;
    class Create12& create12;
    class Create13& create13;
    class Create14& create14;
    class Create15& create15;
    class Create16& create16;
    class Create17& create17;
    class Create18& create18;
    class Create19& create19;
    class Create20& create20;
    class Edit1& edit1;
    class Edit2& edit2;
    class Delete1& delete1;
    class Delete2& delete2;
};

// The form of that name, and the control of that name on it. An unknown name is a bug
Form& form(const Toolkit& toolkit, std::string_view name);
Control& control(const Toolkit& toolkit, std::string_view form, std::string_view name);

}  // namespace vrix
