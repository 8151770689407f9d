#include "platform/win32/win32_registry.h"

#include <windows.h>

namespace vrix {

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

Status status(LSTATUS code) { return static_cast<Status>(code); }

}  // namespace

Status Win32Registry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) {
    HKEY opened = nullptr;
    const LSTATUS code = RegOpenKeyExA(native(parent), path.c_str(), 0, rights, &opened);
    key = code == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(opened) : 0;
    return status(code);
}

Status Win32Registry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) {
    HKEY opened = nullptr;
    char noClass[] = "";
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    const LSTATUS code =
        RegCreateKeyExA(native(parent), path.c_str(), 0, noClass, 0, rights, &security, &opened, nullptr);
    key = code == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(opened) : 0;
    return status(code);
}

Status Win32Registry::closeKey(RegistryKey key) { return status(RegCloseKey(native(key))); }

Status Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                                 std::uint32_t& size) {
    DWORD foundType = type;
    DWORD foundSize = size;
    const LSTATUS code =
        RegQueryValueExA(native(key), name.c_str(), nullptr, &foundType, static_cast<BYTE*>(data), &foundSize);
    type = foundType;
    size = foundSize;
    return status(code);
}

Status Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                               std::uint32_t size) {
    // The platform reads through a null pointer as it stands, and faults.
    if (data == nullptr && size > 1) return Status::noAccess;
    const void* bytes = data == nullptr && size == 1 ? "" : data;
    return status(RegSetValueExA(native(key), name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size));
}

Status Win32Registry::deleteKey(RegistryKey parent, const std::string& path) {
    return status(RegDeleteKeyA(native(parent), path.c_str()));
}

Status Win32Registry::deleteValue(RegistryKey key, const std::string& name) {
    return status(RegDeleteValueA(native(key), name.c_str()));
}

Status Win32Registry::enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) {
    DWORD length = capacity;
    return status(RegEnumKeyExA(native(key), index, name, &length, nullptr, nullptr, nullptr, nullptr));
}

Status Win32Registry::enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    DWORD room = length;
    const LSTATUS code = RegEnumValueA(native(key), index, name, &room, nullptr, nullptr, nullptr, nullptr);
    length = room;
    return status(code);
}

Status Win32Registry::queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) {
    char noClass[] = "";
    DWORD classLength = 0;
    DWORD longest = 0;
    const LSTATUS code = RegQueryInfoKeyA(native(key), noClass, &classLength, nullptr, nullptr, nullptr, nullptr,
                                          nullptr, &longest, nullptr, nullptr, nullptr);
    longestValueName = longest;
    return status(code);
}

std::string Win32Registry::expandEnvironment(const std::string& text) {
    constexpr std::size_t longestText = 32'766;  // the platform loses what is longer
    const std::string known = text.c_str();
    std::string expanded;
    DWORD needed = known.size() > longestText ? 0 : ExpandEnvironmentStringsA(known.c_str(), nullptr, 0);
    while (needed > expanded.size()) {
        expanded.assign(needed, '\0');
        needed = ExpandEnvironmentStringsA(known.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
    }
    return needed == 0 ? known : expanded.c_str();
}

}  // namespace vrix
