#pragma once

#include <cstdio>
#include <optional>
#include <string>

namespace vrix {

// All that is left of a stream; nothing when the disk refuses.
std::optional<std::string> readWhole(std::FILE* stream);

// Reads a whole file and closes it. Throws HostRefused, which names `path`; so it does for a null stream.
std::string readAndClose(std::FILE* file, const std::string& path);

// Writes a whole file and closes it. Throws HostRefused as above.
void writeAndClose(std::FILE* file, const std::string& path, const std::string& bytes);

}  // namespace vrix
