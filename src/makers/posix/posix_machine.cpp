#include <cstdlib>

#include "makers/posix/iconv_encoding.h"
#include "platform/machine.h"

namespace vrix {

namespace {

// A system of the POSIX kind has no registry.
class PosixMachine final : public Machine {
public:
    std::unique_ptr<Registry> registry(RegistryView) override { return nullptr; }
    RegistryView ownView() override { return RegistryView::bits64; }
    // That of Western Windows systems, from which most files come.
    unsigned codePage() override { return 1252; }
    std::unique_ptr<Encoding> encoding(unsigned codePage) override { return iconvEncoding(codePage); }
    Disk& disk() override { return systemDisk(); }
    std::string localDataFolder(const std::string& name) override {
        const char* data = std::getenv("XDG_DATA_HOME");
        const char* home = std::getenv("HOME");
        const bool isSet = data != nullptr && *data != '\0';
        const std::string above = isSet ? data : std::string(home == nullptr ? "" : home) + "/.local/share";
        disk().makeFolder(above + '/' + name);
        return above + '/' + name + '/';
    }
    std::time_t now() override { return std::time(nullptr); }
};

}  // namespace

Machine& systemMachine() {
    static PosixMachine machine;
    return machine;
}

}  // namespace vrix
