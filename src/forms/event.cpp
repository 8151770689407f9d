#include "forms/event.h"

#include <string>

#include "common/runtime_failure.h"
#include "platform/windows.h"

namespace vrix {

namespace {

void end(Windows& windows, const std::string& report) noexcept {
    try {
        windows.ask(report, programTitle, Buttons::ok);
    } catch (const std::exception&) {
        // Too little is left even to report; the program ends all the same.
    }
    windows.quit();
}

}  // namespace

void runEvent(Windows& windows, const std::function<void()>& event) noexcept {
    try {
        event();
    } catch (const RuntimeFailure& failure) {
        end(windows,
            "Run-time error '" + std::to_string(static_cast<int>(failure.number())) + "':\r\n\r\n" + failure.what());
    } catch (const std::exception& error) {
        end(windows, std::string("Run-time error:\r\n\r\n") + error.what());
    }
}

}  // namespace vrix
