#pragma once

#include <ctime>
#include <memory>
#include <string>

#include "common/encoding.h"
#include "platform/disk.h"
#include "platform/registry.h"

namespace vrix {

// What a command line asks of the machine that it runs on. Texts and paths are UTF-8.
class Machine {
public:
    virtual ~Machine() = default;

    // The machine's registry in that view, or null where it has none.
    virtual std::unique_ptr<Registry> registry(RegistryView view) = 0;
    // Which of the other two `own` is.
    virtual RegistryView ownView() = 0;
    // The code page of the system.
    virtual unsigned codePage() = 0;
    // The code page of that number, or null.
    virtual std::unique_ptr<Encoding> encoding(unsigned codePage) = 0;
    virtual Disk& disk() = 0;
    // The full path of a folder below the user's local data, which is made, with a separator at its end.
    virtual std::string localDataFolder(const std::string& name) = 0;
    virtual std::time_t now() = 0;
};

// The machine of the platform that the program is built for.
Machine& systemMachine();

}  // namespace vrix
