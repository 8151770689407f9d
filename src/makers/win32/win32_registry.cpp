#include "makers/win32/win32_registry.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

RegistryStatus status(LSTATUS code) { return static_cast<RegistryStatus>(code); }

// The right by which a view is asked for. A key opened by it stands in that view, but calls below it must ask again.
DWORD viewRight(RegistryView view) {
    switch (view) {
        case RegistryView::own: return 0;
        case RegistryView::wide: return KEY_WOW64_64KEY;
        case RegistryView::narrow: return KEY_WOW64_32KEY;
    }
    return 0;
}

// Hands on the key that a call has opened, or none if the call was refused.
RegistryStatus opened(LSTATUS code, HKEY handle, RegistryKey& key) {
    key = code == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(handle) : 0;
    return status(code);
}

bool isText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

// Room for a value of any length, taken once.
struct WideRoom {
    std::wstring name = std::wstring(16'384, L'\0');  // the longest name there can be
    std::wstring data = std::wstring(2'048, L'\0');
};

LSTATUS enumInto(WideRoom& room, HKEY key, DWORD index, DWORD& length, DWORD& type, DWORD& size) {
    for (;;) {
        length = static_cast<DWORD>(room.name.size());
        size = static_cast<DWORD>(room.data.size() * sizeof(wchar_t));
        const LSTATUS code = RegEnumValueW(key, index, room.name.data(), &length, nullptr, &type,
                                           reinterpret_cast<BYTE*>(room.data.data()), &size);
        if (code != ERROR_MORE_DATA || size <= room.data.size() * sizeof(wchar_t)) return code;
        room.data.resize(size);
    }
}

// Gives name and data of the value at an index. False if a narrow read by that name could give something else.
bool enumWide(HKEY key, DWORD index, std::string& name, ValueData& value) {
    static WideRoom room;
    DWORD length = 0;
    DWORD size = 0;
    DWORD type = 0;
    const LSTATUS code = enumInto(room, key, index, length, type, size);
    if (code != ERROR_SUCCESS || !narrowExactly({room.name.data(), length}, name) ||
        name.find('\0') != std::string::npos) {
        return false;
    }
    value.type = type;
    constexpr std::size_t unit = sizeof(wchar_t);
    if (isText(type)) return size % unit == 0 && narrowExactly({room.data.data(), size / unit}, value.bytes);
    value.bytes.assign(reinterpret_cast<const char*>(room.data.data()), size);
    return true;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Into room that is kept: assign() would ask for memory.
void widen(std::string_view ascii, std::wstring& text) {
    text.resize(ascii.size());
    std::copy(ascii.begin(), ascii.end(), text.begin());
}

// Writes a text of ASCII with its terminator by the wide call. The narrow one stores the same, and takes longer by an
// eighth: it asks for memory twice on the way.
RegistryStatus setWide(HKEY key, std::string_view name, DWORD type, std::string_view text) {
    static std::wstring wideName;
    static std::wstring data;
    widen(name, wideName);
    widen(text, data);
    return status(RegSetValueExW(key, wideName.c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                                 static_cast<DWORD>(data.size() * sizeof(wchar_t))));
}

}  // namespace

RegistryStatus Win32Registry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                      RegistryKey& key) {
    HKEY handle = nullptr;
    const LSTATUS code = RegOpenKeyExA(native(parent), path.c_str(), 0, rights | viewRight(view_), &handle);
    return opened(code, handle, key);
}

RegistryStatus Win32Registry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                        RegistryKey& key) {
    HKEY handle = nullptr;
    char noClass[] = "";
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    const LSTATUS code = RegCreateKeyExA(native(parent), path.c_str(), 0, noClass, 0, rights | viewRight(view_),
                                         &security, &handle, nullptr);
    return opened(code, handle, key);
}

RegistryStatus Win32Registry::closeKey(RegistryKey key) { return status(RegCloseKey(native(key))); }

RegistryStatus Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                                         std::uint32_t& size) {
    DWORD foundType = type;
    DWORD foundSize = size;
    const LSTATUS code =
        RegQueryValueExA(native(key), name.c_str(), nullptr, &foundType, static_cast<BYTE*>(data), &foundSize);
    type = foundType;
    size = foundSize;
    return status(code);
}

RegistryStatus Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                                       std::uint32_t size) {
    if (data == nullptr && size > 1) return RegistryStatus::noAccess;
    const std::string_view text(static_cast<const char*>(data), data == nullptr ? 0 : size);
    if (isText(type) && text.ends_with('\0') && isAscii(text) && isAscii(name)) {
        return setWide(native(key), name.c_str(), type, text);
    }
    const void* bytes = data == nullptr ? "" : data;
    return status(RegSetValueExA(native(key), name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size));
}

RegistryStatus Win32Registry::deleteKey(RegistryKey parent, const std::string& path) {
    if (view_ == RegistryView::own) return status(RegDeleteKeyA(native(parent), path.c_str()));
    return status(RegDeleteKeyExA(native(parent), path.c_str(), viewRight(view_), 0));
}

RegistryStatus Win32Registry::deleteValue(RegistryKey key, const std::string& name) {
    return status(RegDeleteValueA(native(key), name.c_str()));
}

RegistryStatus Win32Registry::enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) {
    DWORD length = capacity;
    return status(RegEnumKeyExA(native(key), index, name, &length, nullptr, nullptr, nullptr, nullptr));
}

RegistryStatus Win32Registry::enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length,
                                        std::optional<ValueData>* data) {
    DWORD room = length;
    if (data != nullptr) {
        std::string text;
        if (enumWide(native(key), index, text, data->emplace()) && text.size() < room) {
            std::memcpy(name, text.c_str(), text.size() + 1);
            length = static_cast<std::uint32_t>(text.size());
            return RegistryStatus::success;
        }
        data->reset();
    }
    const LSTATUS code = RegEnumValueA(native(key), index, name, &room, nullptr, nullptr, nullptr, nullptr);
    length = room;
    return status(code);
}

RegistryStatus Win32Registry::queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) {
    DWORD longest = 0;
    char noClass[] = "";
    DWORD classLength = 0;
    const LSTATUS code = RegQueryInfoKeyA(native(key), noClass, &classLength, nullptr, nullptr, nullptr, nullptr,
                                          nullptr, &longest, nullptr, nullptr, nullptr);
    longestValueName = longest;
    return status(code);
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
