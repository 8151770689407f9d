#include <cstdlib>

#include "makers/embedded/journal_registry.h"
#include "makers/win32/startup.h"
#include "makers/win32/win32_disk.h"
#include "program/run_on_windows.h"

namespace {

std::optional<std::string> environment(const std::string& name) {
    const char* text = std::getenv(name.c_str());
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace

// The same program over a store of its own, kept in one file of the user. It leaves the machine's registry alone.
int main() {
    vrix::hardenProcess();
    vrix::Win32Screen screen;
    try {
        vrix::JournalRegistry registry(vrix::localDataFile("Vrix Toolkit Trial", "store.journal"), &environment,
                                       vrix::makeJournalDisk());
        return vrix::runOnWindows(registry, screen);
    } catch (const vrix::JournalError& error) {
        screen.ask(error.what(), vrix::programTitle, vrix::Buttons::ok);
        return 1;
    }
}
