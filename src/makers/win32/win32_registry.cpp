#include "makers/win32/win32_registry.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

RegistryStatus status(LSTATUS code) { return static_cast<RegistryStatus>(code); }

RegistryKey known(HKEY key) { return reinterpret_cast<RegistryKey>(key); }

std::uint64_t in100ns(FILETIME time) {
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

LSTATUS take(HKEY parent, const std::string& path, std::uint32_t rights, bool make, HKEY& key) {
    if (!make) return RegOpenKeyExA(parent, path.c_str(), 0, rights, &key);
    char noClass[] = "";
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    return RegCreateKeyExA(parent, path.c_str(), 0, noClass, 0, rights, &security, &key, nullptr);
}

// A key's time of change in units of 100 ns, and the length of its longest value name without terminator.
LSTATUS askInfo(HKEY key, DWORD& longest, std::uint64_t& changed) {
    char noClass[] = "";
    DWORD classLength = 0;
    FILETIME time{};
    const LSTATUS code = RegQueryInfoKeyA(key, noClass, &classLength, nullptr, nullptr, nullptr, nullptr, nullptr,
                                          &longest, nullptr, nullptr, &time);
    changed = in100ns(time);
    return code;
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
    listing_ = {};
    for (Kept& kept : lent_) kept.path.clear();
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

// Does what the call that lent the unproven key would have done without it.
RegistryStatus Win32Registry::settle() {
    peek_ = {};
    if (unproven_ == 0) return RegistryStatus::success;
    Kept& kept = *find(lent_, std::exchange(unproven_, 0));
    HKEY fresh = nullptr;
    const LSTATUS code = take(HKEY_LOCAL_MACHINE, kept.path, kept.rights, kept.made, fresh);
    if (code == ERROR_SUCCESS) kept.renewed = fresh;
    return status(code);
}

template <class Call>
RegistryStatus Win32Registry::on(RegistryKey key, const Call& call) {
    peek_ = {};
    listing_ = {};
    if (key != unproven_) settle();
    LSTATUS code = call(reach(key));
    if (key != 0 && key == unproven_) {
        if (provesKey(code)) {
            unproven_ = 0;
        } else {
            if (const RegistryStatus settled = settle(); settled != RegistryStatus::success) return settled;
            code = call(reach(key));
        }
    }
    if (const auto lent = find(lent_, key); code == ERROR_KEY_DELETED && lent != lent_.end()) lent->path.clear();
    return status(code);
}

// ---- Calls ----

RegistryStatus Win32Registry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                      RegistryKey& key) {
    return give(parent, path, rights, false, key);
}

RegistryStatus Win32Registry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                        RegistryKey& key) {
    return give(parent, path, rights, true, key);
}

RegistryStatus Win32Registry::give(RegistryKey parent, const std::string& path, std::uint32_t rights, bool make,
                                   RegistryKey& key) {
    settle();
    if (make || path != listing_.path) listing_ = {};
    const bool mayStay = parent == hive::localMachine && *path.c_str() != '\0';  // else it may be the hive itself
    const auto idle = std::find_if(idle_.begin(), idle_.end(), [&](const Kept& kept) {
        return mayStay && kept.rights == rights && kept.path == path;
    });
    if (idle != idle_.end()) {
        key = unproven_ = known(idle->handle);
        idle->made = make;
        lent_.push_back(std::move(*idle));
        idle_.erase(idle);
        return RegistryStatus::success;
    }
    HKEY opened = nullptr;
    const LSTATUS code = take(reach(parent), path, rights, make, opened);
    key = code == ERROR_SUCCESS ? known(opened) : 0;
    if (mayStay && key != 0) lent_.push_back({opened, path, rights, make});
    return status(code);
}

RegistryStatus Win32Registry::closeKey(RegistryKey key) {
    peek_ = {};
    const auto lent = find(lent_, key);
    if (lent == lent_.end()) return status(RegCloseKey(reach(key)));
    if (key == unproven_ && lent->made) settle();
    if (key == unproven_) unproven_ = 0;
    Kept kept = std::move(*lent);
    lent_.erase(lent);
    if (kept.renewed != nullptr) RegCloseKey(kept.renewed);
    if (kept.renewed != nullptr || kept.path.empty()) return status(RegCloseKey(kept.handle));
    constexpr std::size_t mostIdle = 4;  // the Topics of a Product are written into three keys in turn
    if (idle_.size() == mostIdle) {
        RegCloseKey(idle_.front().handle);
        idle_.erase(idle_.begin());
    }
    idle_.push_back(std::move(kept));
    return RegistryStatus::success;
}

RegistryStatus Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                                         std::uint32_t& size) {
    const Peek before = std::exchange(peek_, {});
    if (before.key == key && key != 0 && before.name == name && data != nullptr && size == before.data.size()) {
        type = before.type;
        size = static_cast<std::uint32_t>(before.data.copy(static_cast<char*>(data), size));
        return RegistryStatus::success;
    }
    char room[512];
    const bool asksSize = size == 0 && data != nullptr;
    Listing listing = std::exchange(listing_, {});
    if (asksSize && isListed(listing, key) && listing.atEnd) {
        while (listing.next < listing.values.size() && listing.values[listing.next].name.empty()) ++listing.next;
        if (listing.next < listing.values.size() && listing.values[listing.next].name == name) {
            peek_ = std::move(listing.values[listing.next++]);
            peek_.key = key;
            type = peek_.type;
            size = static_cast<std::uint32_t>(peek_.data.size());
            listing_ = std::move(listing);
            return size == 0 ? RegistryStatus::success : RegistryStatus::moreData;
        }
    }
    DWORD foundType = type;
    DWORD foundSize = 0;
    const RegistryStatus found = on(key, [&](HKEY handle) {
        foundSize = asksSize ? sizeof room : size;
        void* place = asksSize ? room : data;
        return RegQueryValueExA(handle, name.c_str(), nullptr, &foundType, static_cast<BYTE*>(place), &foundSize);
    });
    type = foundType;
    size = foundSize;
    if (!asksSize || found != RegistryStatus::success) return found;
    peek_ = {key, name, foundType, std::string(room, foundSize)};
    return foundSize == 0 ? RegistryStatus::success : RegistryStatus::moreData;
}

RegistryStatus Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                                       std::uint32_t size) {
    // The platform reads through a null pointer as it stands, and faults.
    if (data == nullptr && size > 1) return on(key, [](HKEY) { return ERROR_NOACCESS; });
    const void* bytes = data == nullptr && size == 1 ? "" : data;
    return on(key, [&](HKEY handle) {
        return RegSetValueExA(handle, name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size);
    });
}

RegistryStatus Win32Registry::deleteKey(RegistryKey parent, const std::string& path) {
    release();
    return status(RegDeleteKeyA(reach(parent), path.c_str()));
}

RegistryStatus Win32Registry::deleteValue(RegistryKey key, const std::string& name) {
    return on(key, [&](HKEY handle) { return RegDeleteValueA(handle, name.c_str()); });
}

RegistryStatus Win32Registry::enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) {
    return on(key, [&](HKEY handle) {
        DWORD length = capacity;
        return RegEnumKeyExA(handle, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    });
}

RegistryStatus Win32Registry::enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    peek_ = {};
    Listing listing = std::exchange(listing_, {});
    if (isListed(listing, key) && list(listing, key, index, name, length)) {
        listing_ = std::move(listing);
        return listing_.atEnd ? RegistryStatus::noMoreItems : RegistryStatus::success;
    }
    DWORD room = 0;
    const RegistryStatus found = on(key, [&](HKEY handle) {
        room = length;
        return RegEnumValueA(handle, index, name, &room, nullptr, nullptr, nullptr, nullptr);
    });
    length = room;
    return found;
}

RegistryStatus Win32Registry::queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) {
    FILETIME before;
    GetSystemTimeAsFileTime(&before);
    DWORD longest = 0;
    std::uint64_t changed = 0;
    const RegistryStatus found = on(key, [&](HKEY handle) { return askInfo(handle, longest, changed); });
    longestValueName = longest;
    constexpr std::uint64_t coarsestTick = 1'000'000;  // a good deal more than the platform's, a tenth of a second
    const auto lent = find(lent_, key);
    if (found == RegistryStatus::success && lent != lent_.end() && changed + coarsestTick < in100ns(before)) {
        listing_ = {lent->path, changed, false, {}, 0};
    }
    return found;
}

// ---- Listings ----

// Whether the key is the one that is listed, and may be read. Where two keys are open, one could be out of date.
bool Win32Registry::isListed(const Listing& listing, RegistryKey key) const {
    if (lent_.size() != 1 || known(lent_.front().handle) != key) return false;
    return lent_.front().path == listing.path && (lent_.front().rights & access::queryValue) != 0;
}

// The next step of a listing with the value's data. False if the plain call has to do it.
bool Win32Registry::list(Listing& listing, RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    if (listing.atEnd || index != listing.values.size()) return false;
    std::wstring wideName(length, L'\0');
    wchar_t room[2'048];
    DWORD nameLength = length;
    DWORD type = 0;
    DWORD size = sizeof room;
    const LSTATUS code = RegEnumValueW(reach(key), index, wideName.data(), &nameLength, nullptr, &type,
                                       reinterpret_cast<BYTE*>(room), &size);
    if (code == ERROR_NO_MORE_ITEMS) {
        DWORD longest = 0;
        std::uint64_t changed = 0;
        listing.atEnd = askInfo(reach(key), longest, changed) == ERROR_SUCCESS && changed == listing.changed;
        return listing.atEnd;
    }
    Peek value{key, {}, type, {}};
    if (code != ERROR_SUCCESS || !narrowExactly({wideName.data(), nameLength}, value.name)) return false;
    if (value.name.size() >= length || value.name.find('\0') != std::string::npos) return false;
    if (type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ) {
        if (size % sizeof *room != 0 || !narrowExactly({room, size / sizeof *room}, value.data)) return false;
    } else {
        value.data.assign(reinterpret_cast<const char*>(room), size);
    }
    length = static_cast<std::uint32_t>(value.name.size());
    std::memcpy(name, value.name.c_str(), value.name.size() + 1);
    listing.values.push_back(std::move(value));
    return true;
}

std::string Win32Registry::expandEnvironment(const std::string& text) {
    constexpr std::size_t longestText = 32'766;  // the platform loses what is longer
    const std::string known = text.c_str();
    const std::wstring plain = wide(known);
    std::wstring expanded;
    // The narrow call counts characters where it should count bytes.
    DWORD needed = plain.size() > longestText ? 0 : ExpandEnvironmentStringsW(plain.c_str(), nullptr, 0);
    while (needed > expanded.size()) {
        expanded.assign(needed, L'\0');
        needed = ExpandEnvironmentStringsW(plain.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
    }
    return needed == 0 ? known : narrow(expanded.c_str());
}

}  // namespace vrix
