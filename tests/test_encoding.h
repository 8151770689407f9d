#pragma once

#include <memory>

#include "common/encoding.h"

namespace vrix {

// The code page of that number, by the platform that the tests run on.
std::unique_ptr<Encoding> testEncoding(unsigned codePage = 1252);

}  // namespace vrix
