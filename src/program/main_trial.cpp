#include "common/refusal.h"
#include "makers/embedded/code_page_registry.h"
#include "makers/embedded/journal_registry.h"
#include "makers/win32/startup.h"
#include "program/run_on_windows.h"

// The same program over a store of its own, kept in one file of the user. It leaves the machine's registry alone.
int main() {
    vrix::hardenProcess();
    vrix::useSystemTexts();
    vrix::Win32Screen screen;
    try {
        const std::string store = vrix::localDataFolder("Vrix Toolkit Trial") + "store.journal";
        vrix::JournalRegistry journal(store, &vrix::environmentText, vrix::systemDisk());
        screen.identity = {" (Trial)", vrix::aboutProgram("Vrix Administrative Toolkit (Trial)", VRIX_VERSION, store)};
        vrix::CodePageRegistry registry(journal);
        screen.onPause = [&] { journal.sync(); };
        return vrix::runOnWindows(registry, screen);
    } catch (const vrix::Refusal& refusal) {
        vrix::tell(std::string(refusal.what()) + '.', vrix::programTitle);
        return 1;
    }
}
