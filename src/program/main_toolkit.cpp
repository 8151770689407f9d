#include <ctime>
#include <exception>

#include "backup/backed_up_registry.h"
#include "backup/backup_folder.h"
#include "makers/win32/startup.h"
#include "makers/win32/win32_registry.h"
#include "program/run_on_windows.h"

namespace {

// Makes a backup of the store. The program goes on if that fails.
void keepBackup(vrix::Registry& registry) {
    try {
        const std::string folder = vrix::localDataFolder(vrix::registryBackups(vrix::programWidth));
        vrix::BackupFolder(folder, vrix::systemDisk()).keep(registry, std::time(nullptr));
    } catch (const std::exception&) {
    }
}

}  // namespace

// The product: works on the machine's registry.
int main() {
    vrix::hardenProcess();
    vrix::useSystemTexts();
    const auto machine = vrix::narrowRegistry();
    vrix::BackedUpRegistry registry(*machine, [] { keepBackup(*vrix::wideRegistry()); });
    vrix::Win32Screen screen;
    screen.identity.about = vrix::aboutProgram(
        "Vrix Administrative Toolkit", VRIX_VERSION,
        "the " + std::to_string(vrix::programWidth) + "-bit registry, HKEY_LOCAL_MACHINE\\Software\\Vrix");
    return vrix::runOnWindows(registry, screen);
}
