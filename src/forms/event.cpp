#include "forms/event.h"

#include <exception>
#include <string>

#include "common/runtime_failure.h"
#include "platform/screen.h"

namespace vrix {

namespace {

std::string report() {
    try {
        throw;
    } catch (const RuntimeFailure& failure) {
        return "Run-time error '" + std::to_string(static_cast<int>(failure.number())) + "':\r\n\r\n" + failure.what();
    } catch (const std::exception& error) {
        return std::string("Run-time error:\r\n\r\n") + error.what();
    }
}

}  // namespace

void reportFailure(Screen& screen) noexcept {
    try {
        screen.ask(report(), programTitle, Buttons::ok);
    } catch (const std::exception&) {
        // The report failed too, for example out of memory. The program ends all the same.
    }
    screen.quitByFailure();
}

}  // namespace vrix
