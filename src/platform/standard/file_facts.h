#pragma once

#include <cstdint>
#include <string>

namespace vrix {

// Facts about files. A path is bytes of the system code page, up to its first zero byte, as in all narrow calls.

enum class PathKind { nothing, file, folder };
PathKind kindOf(const std::string& path);

// The folder in which a path lies, the current one for a bare name.
std::string folderOf(const std::string& path);

// In bytes; 0 for a file that is not there.
std::uint64_t fileSize(const std::string& path);

// Cuts a file. False when the disk refuses.
bool cutFile(const std::string& path, std::uint64_t size);

// Removes a file, be it read-only or not. False when it is still there.
bool removeFile(const std::string& path);

}  // namespace vrix
