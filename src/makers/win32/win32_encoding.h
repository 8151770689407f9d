#pragma once

#include <memory>

#include "common/encoding.h"

namespace vrix {

// The code page of that number, by the platform's own tables. Null where the system lacks it.
std::unique_ptr<Encoding> win32Encoding(unsigned codePage);

}  // namespace vrix
