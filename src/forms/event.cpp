#include "forms/event.h"

#include <string>

#include "common/runtime_failure.h"
#include "platform/screen.h"

namespace vrix {

namespace {

void end(Screen& screen, const std::string& report) noexcept {
    try {
        screen.ask(report, programTitle, Buttons::ok);
    } catch (const std::exception&) {
        // The report failed too, as it may without memory. The program ends all the same.
    }
    screen.quitByFailure();
}

}  // namespace

void runEvent(Screen& screen, const std::function<void()>& event) noexcept {
    try {
        event();
    } catch (const RuntimeFailure& failure) {
        end(screen,
            "Run-time error '" + std::to_string(static_cast<int>(failure.number())) + "':\r\n\r\n" + failure.what());
    } catch (const std::exception& error) {
        end(screen, std::string("Run-time error:\r\n\r\n") + error.what());
    }
}

}  // namespace vrix
