#include "makers/embedded/journal_registry.h"
#include "makers/win32/startup.h"
#include "makers/win32/win32_disk.h"
#include "program/run_on_windows.h"

// The same program over a store of its own, kept in one file of the user. It leaves the machine's registry alone.
int main() {
    vrix::hardenProcess();
    vrix::useSystemCodePage();
    vrix::Win32Screen screen;
    try {
        vrix::JournalRegistry registry(vrix::localDataFile("Vrix Toolkit Trial", "store.journal"),
                                       &vrix::environmentText, vrix::makeJournalDisk());
        screen.onPause = [&] { registry.sync(); };
        return vrix::runOnWindows(registry, screen);
    } catch (const vrix::JournalError& error) {
        vrix::tell(error.what(), vrix::programTitle);
        return 1;
    }
}
