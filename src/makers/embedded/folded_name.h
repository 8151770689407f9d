#pragma once

#include <string>

namespace vrix {

// A name as it is compared: without regard to case, in ASCII and for the letters of code page 1252.
std::string foldedName(const std::string& name);

}  // namespace vrix
