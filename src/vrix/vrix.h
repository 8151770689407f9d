#pragma once

#include <string>
#include <vector>

#include "platform/host.h"

namespace vrix {

// Runs a command line, given without the program's name, and gives the exit code. Nothing is thrown.
int runVrix(const std::vector<std::string>& arguments, Host& host);

}  // namespace vrix
