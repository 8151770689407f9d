#pragma once

#include <memory>

#include "platform/machine.h"

namespace vrix {

// The code page of that number, by the platform that the tests run on.
inline std::unique_ptr<Encoding> testEncoding(unsigned codePage = 1252) { return systemMachine().encoding(codePage); }

}  // namespace vrix
