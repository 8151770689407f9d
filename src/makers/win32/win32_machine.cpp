#include <windows.h>

#include "makers/win32/startup.h"
#include "makers/win32/win32_encoding.h"
#include "makers/win32/win32_registry.h"
#include "platform/machine.h"

namespace vrix {

namespace {

class Win32Machine final : public Machine {
public:
    std::unique_ptr<Registry> registry(RegistryView view) override {
        BOOL isOnWideSystem = programWidth == 64;
        if (isOnWideSystem == FALSE) IsWow64Process(GetCurrentProcess(), &isOnWideSystem);
        const bool isThere = view == RegistryView::own || isOnWideSystem != FALSE;
        return isThere ? wideRegistry(view) : nullptr;
    }
    RegistryView ownView() override { return programWidth == 64 ? RegistryView::bits64 : RegistryView::bits32; }
    unsigned codePage() override { return GetACP(); }
    std::unique_ptr<Encoding> encoding(unsigned codePage) override { return win32Encoding(codePage); }
    Disk& disk() override { return systemDisk(); }
    std::string localDataFolder(const std::string& name) override { return vrix::localDataFolder(name); }
    std::time_t now() override { return std::time(nullptr); }
};

}  // namespace

Machine& systemMachine() {
    static Win32Machine machine;
    return machine;
}

}  // namespace vrix
