#pragma once

#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace vrix {

class Control;
class Form;
class cRegistryFunctions;
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
class OptionalSection;
class Create8;
class Create9;
class FieldsPage;
class Create10;
class FieldOptionsPage;
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
    OptionalSection& create5;
    OptionalSection& create6;
    OptionalSection& create7;
    Create8& create8;
    Create9& create9;
    Create10& create10;
    FieldsPage& create11;
    FieldsPage& create12;
    FieldsPage& create13;
    FieldOptionsPage& create14;
    FieldOptionsPage& create15;
    FieldOptionsPage& create16;
    Create17& create17;
    Create18& create18;
    Create19& create19;
    Create20& create20;

    // All windows, in the order in which the program was told of them. Filled as they are made.
    std::vector<Form*> forms;
};

// The control of that name on the form of that name; both must be there.
Control& control(const Toolkit& toolkit, std::string_view form, std::string_view name);

}  // namespace vrix
