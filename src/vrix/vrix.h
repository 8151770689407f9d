#pragma once

#include <string>
#include <vector>

#include "platform/console.h"
#include "platform/machine.h"

namespace vrix {

// Runs a command line, given without the program's name, and gives the exit code. Nothing is thrown.
int runVrix(const std::vector<std::string>& arguments, Console& console, Machine& machine);

}  // namespace vrix
