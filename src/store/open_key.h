#pragma once

#include "common/fixed.h"
#include "platform/registry.h"

namespace vrix {

// A key that is open until the end of its scope; 0 when it could not be opened.
class OpenKey : Fixed {
public:
    explicit OpenKey(Registry& registry) : registry_(registry) {}
    ~OpenKey() {
        if (key != 0) registry_.closeKey(key);
    }

    RegistryKey key = 0;

private:
    Registry& registry_;
};

}  // namespace vrix
