#pragma once

#include <filesystem>
#include <string>

namespace vrix {

// A path in bytes of the system code page, up to its first zero byte, for the standard library's file system. That
// would take narrow text for another encoding on Windows; the narrow calls that open files take the code page.
std::filesystem::path nativePath(const std::string& path);

// The folder in which a path lies, the current one for a bare name.
std::filesystem::path folderOf(const std::string& path);

bool isFolder(const std::filesystem::path& path);

}  // namespace vrix
