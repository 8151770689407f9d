#pragma once

#include <string>

namespace vrix {

// To be called first. From then on the process loads libraries from the system's folder only.
void hardenProcess();

// The full path of a file in a folder below the user's local data, which is made where it is missing. Without local
// data, as in a stripped environment, it lies in the folder for temporary files.
std::string localDataFile(const std::string& folder, const std::string& file);

}  // namespace vrix
