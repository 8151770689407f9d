#include "makers/kept/kept_keys.h"
#include "makers/win32/startup.h"
#include "makers/win32/win32_registry.h"
#include "program/run_on_windows.h"

// The product: works on the machine's registry.
int main() {
    vrix::hardenProcess();
    vrix::useSystemCodePage();
    vrix::Win32Registry machine;
    vrix::KeptKeys registry(machine);
    vrix::Win32Screen screen;
    screen.identity.about = vrix::aboutProgram(
        "Vrix Administrative Toolkit", VRIX_VERSION,
        "the " + std::to_string(vrix::programWidth) + "-bit registry, HKEY_LOCAL_MACHINE\\Software\\Vrix");
    screen.onPause = [&] { registry.release(); };
    return vrix::runOnWindows(registry, screen);
}
