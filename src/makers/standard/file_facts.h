#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace vrix {

// Facts about files. A path is bytes of the system code page, up to its first zero byte, as in all narrow calls.

enum class PathKind { nothing, file, folder };
PathKind kindOf(const std::string& path);

// The folder in which a path lies, the current one for a bare name.
std::string folderOf(const std::string& path);

// The size of an open file in bytes, which is at its beginning then. None when the disk does not tell.
std::optional<std::uint64_t> sizeOf(std::FILE* file);

// The names in a folder, in no order. None where there is no such folder.
std::vector<std::string> namesIn(const std::string& folder);

// Cuts a file. False when the disk refuses.
bool cutFile(const std::string& path, std::uint64_t size);

// Removes a file, be it read-only or not. False when it is still there.
bool removeFile(const std::string& path);

}  // namespace vrix
