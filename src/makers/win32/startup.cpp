#include "makers/win32/startup.h"

#include <windows.h>

#include <array>

#include "makers/win32/library_function.h"

namespace vrix {

void hardenProcess() {
    constexpr DWORD systemFolderOnly = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    using Restrict = BOOL(WINAPI*)(DWORD);
    // Systems without updates lack it.
    const auto restrictTo = libraryFunction<Restrict>("kernel32.dll", "SetDefaultDllDirectories");
    if (restrictTo != nullptr) restrictTo(systemFolderOnly);
}

std::string localDataFile(const std::string& folder, const std::string& file) {
    std::array<char, 1024> base{};
    const auto room = static_cast<DWORD>(base.size());
    if (const DWORD length = GetEnvironmentVariableA("LOCALAPPDATA", base.data(), room);
        length == 0 || length >= room) {
        GetTempPathA(room, base.data());
    }
    const std::string path = std::string(base.data()) + "\\" + folder;
    CreateDirectoryA(path.c_str(), nullptr);
    return path + "\\" + file;
}

}  // namespace vrix
