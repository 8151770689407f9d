#pragma once

#include <memory>

#include "common/encoding.h"

namespace vrix {

// The code page of that number, such as 1252, 932 or 65001, by the C library's converter. Null where it has none.
std::unique_ptr<Encoding> iconvEncoding(unsigned codePage);

}  // namespace vrix
