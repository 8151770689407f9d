#include "platform/win32/win32_registry.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace vrix {

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

Status status(LSTATUS code) { return static_cast<Status>(code); }

RegistryKey known(HKEY key) { return reinterpret_cast<RegistryKey>(key); }

LSTATUS take(HKEY parent, const std::string& path, std::uint32_t rights, bool make, HKEY& key) {
    if (!make) return RegOpenKeyExA(parent, path.c_str(), 0, rights, &key);
    char noClass[] = "";
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    return RegCreateKeyExA(parent, path.c_str(), 0, noClass, 0, rights, &security, &key, nullptr);
}

// An answer that only a key which is there can give.
bool provesKey(LSTATUS code) {
    return code == ERROR_SUCCESS || code == ERROR_FILE_NOT_FOUND || code == ERROR_MORE_DATA ||
           code == ERROR_NO_MORE_ITEMS;
}

}  // namespace

// ---- Keys that stay open ----

Win32Registry::~Win32Registry() { release(); }

void Win32Registry::release() {
    settle();
    for (const Kept& kept : idle_) RegCloseKey(kept.handle);
    idle_.clear();
}

Win32Registry::Keys::iterator Win32Registry::find(Keys& keys, RegistryKey key) {
    return std::find_if(keys.begin(), keys.end(), [&](const Kept& kept) { return known(kept.handle) == key; });
}

// The native handle for a call: none for a key that its caller has closed.
HKEY Win32Registry::reach(RegistryKey key) {
    if (const auto kept = find(lent_, key); kept != lent_.end() && kept->renewed != nullptr) return kept->renewed;
    return find(idle_, key) == idle_.end() ? native(key) : nullptr;
}

// Does what the createKey that lent the unproven key would have done without it. An openKey did nothing that others can
// see, so it is done only where its key has to be renewed.
Status Win32Registry::settle(bool renew) {
    peek_ = {};
    if (unproven_ == 0) return Status::success;
    Kept& kept = *find(lent_, std::exchange(unproven_, 0));
    if (!kept.made && !renew) return Status::success;
    HKEY fresh = nullptr;
    const LSTATUS code = take(HKEY_LOCAL_MACHINE, kept.path, kept.rights, kept.made, fresh);
    if (code == ERROR_SUCCESS) kept.renewed = fresh;
    return status(code);
}

template <class Call>
Status Win32Registry::on(RegistryKey key, const Call& call) {
    peek_ = {};
    if (key != unproven_) settle();
    LSTATUS code = call(reach(key));
    if (key != unproven_ || key == 0) return status(code);
    if (code == ERROR_KEY_DELETED) {
        if (const Status settled = settle(true); settled != Status::success) return settled;
        code = call(reach(key));
    } else if (provesKey(code)) {
        unproven_ = 0;
    }
    return status(code);
}

// ---- Calls ----

Status Win32Registry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) {
    return give(parent, path, rights, false, key);
}

Status Win32Registry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) {
    return give(parent, path, rights, true, key);
}

Status Win32Registry::give(RegistryKey parent, const std::string& path, std::uint32_t rights, bool make,
                           RegistryKey& key) {
    settle();
    const bool mayStay = parent == hive::localMachine && *path.c_str() != '\0';  // else it may be the hive itself
    const auto idle = std::find_if(idle_.begin(), idle_.end(), [&](const Kept& kept) {
        return mayStay && kept.rights == rights && kept.path == path;
    });
    if (idle != idle_.end()) {
        key = unproven_ = known(idle->handle);
        idle->made = make;
        lent_.push_back(std::move(*idle));
        idle_.erase(idle);
        return Status::success;
    }
    HKEY opened = nullptr;
    const LSTATUS code = take(reach(parent), path, rights, make, opened);
    key = code == ERROR_SUCCESS ? known(opened) : 0;
    if (mayStay && key != 0) lent_.push_back({opened, path, rights, make});
    return status(code);
}

Status Win32Registry::closeKey(RegistryKey key) {
    peek_ = {};
    if (key == unproven_) settle();
    const auto lent = find(lent_, key);
    if (lent == lent_.end()) return status(RegCloseKey(reach(key)));
    Kept kept = std::move(*lent);
    lent_.erase(lent);
    if (kept.renewed != nullptr) {
        RegCloseKey(kept.renewed);
        return status(RegCloseKey(kept.handle));
    }
    constexpr std::size_t mostIdle = 4;  // the Topics of a Product are written into three keys in turn
    if (idle_.size() == mostIdle) {
        RegCloseKey(idle_.front().handle);
        idle_.erase(idle_.begin());
    }
    idle_.push_back(std::move(kept));
    return Status::success;
}

Status Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                                 std::uint32_t& size) {
    const Peek before = std::exchange(peek_, {});
    if (before.key == key && key != 0 && before.name == name && data != nullptr && size >= before.data.size()) {
        type = before.type;
        size = static_cast<std::uint32_t>(before.data.copy(static_cast<char*>(data), size));
        return Status::success;
    }
    char room[512];
    const bool asksSize = size == 0 && data != nullptr;
    DWORD foundType = type;
    DWORD foundSize = 0;
    const Status found = on(key, [&](HKEY handle) {
        foundSize = asksSize ? sizeof room : size;
        void* place = asksSize ? room : data;
        return RegQueryValueExA(handle, name.c_str(), nullptr, &foundType, static_cast<BYTE*>(place), &foundSize);
    });
    type = foundType;
    size = foundSize;
    if (!asksSize || found != Status::success) return found;
    peek_ = {key, name, foundType, std::string(room, foundSize)};
    return foundSize == 0 ? Status::success : Status::moreData;
}

Status Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                               std::uint32_t size) {
    // The platform reads through a null pointer as it stands, and faults.
    if (data == nullptr && size > 1) return Status::noAccess;
    const void* bytes = data == nullptr && size == 1 ? "" : data;
    return on(key, [&](HKEY handle) {
        return RegSetValueExA(handle, name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size);
    });
}

Status Win32Registry::deleteKey(RegistryKey parent, const std::string& path) {
    release();
    return status(RegDeleteKeyA(reach(parent), path.c_str()));
}

Status Win32Registry::deleteValue(RegistryKey key, const std::string& name) {
    return on(key, [&](HKEY handle) { return RegDeleteValueA(handle, name.c_str()); });
}

Status Win32Registry::enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) {
    return on(key, [&](HKEY handle) {
        DWORD length = capacity;
        return RegEnumKeyExA(handle, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    });
}

Status Win32Registry::enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    DWORD room = 0;
    const Status found = on(key, [&](HKEY handle) {
        room = length;
        return RegEnumValueA(handle, index, name, &room, nullptr, nullptr, nullptr, nullptr);
    });
    length = room;
    return found;
}

Status Win32Registry::queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) {
    char noClass[] = "";
    DWORD longest = 0;
    const Status found = on(key, [&](HKEY handle) {
        DWORD classLength = 0;
        return RegQueryInfoKeyA(handle, noClass, &classLength, nullptr, nullptr, nullptr, nullptr, nullptr, &longest,
                                nullptr, nullptr, nullptr);
    });
    longestValueName = longest;
    return found;
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
