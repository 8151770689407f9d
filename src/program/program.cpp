#include "program/program.h"

namespace vrix {

template <class Window>
Window& Program::make() {
    windows_.push_back(std::make_unique<Window>(toolkit_));
    toolkit_.forms.push_back(windows_.back().get());
    return static_cast<Window&>(*windows_.back());
}

// The toolkit takes its members one by one, in their order, and each window is made in that order. A window's
// constructor may use what stands before it, and the others only once the program runs.
Program::Program(const Platform& platform)
    : settings_(platform.registry),
      toolkit_{platform,
               settings_,
               productReg_,
               selectedProduct_,
               smartFieldModule_,
               topicOrderModule_,
               options_,
               {},
               make<SplashScreen>(),
               make<ToolkitMain>(),
               make<Create1>(),
               make<Create2>(),
               make<Create3>(),
               make<Create4>(),
               make<Create5>(),
               make<Create6>(),
               make<Create7>(),
               make<Create8>(),
               make<Create9>(),
               make<Create10>(),
               make<Create11>(),
               make<Create12>(),
               make<Create13>(),
               make<Create14>(),
               make<Create15>(),
               make<Create16>(),
               make<Create17>(),
               make<Create18>(),
               make<Create19>(),
               make<Create20>(),
               make<Edit1>(),
               make<Edit2>(),
               make<Delete1>(),
               make<Delete2>()} {}

}  // namespace vrix
