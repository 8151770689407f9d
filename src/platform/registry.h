#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vrix {

// A status of the platform's registry. Any number may come; those that the program or a maker names stand here.
enum class RegistryStatus : std::int32_t {
    success = 0,
    fileNotFound = 2,
    accessDenied = 5,
    invalidHandle = 6,
    invalidParameter = 87,
    badPathName = 161,
    moreData = 234,
    noMoreItems = 259,
    noAccess = 998,
    registryIoFailed = 1016,
    keyDeleted = 1018,
};

// A handle to an open key, or one of the predefined hives. 0 is no key.
using RegistryKey = std::intptr_t;

namespace hive {
inline constexpr std::int32_t classesRoot = static_cast<std::int32_t>(0x80000000u);
inline constexpr std::int32_t localMachine = static_cast<std::int32_t>(0x80000002u);
}  // namespace hive

// 64-bit Windows keeps two registries below the machine's Software key, for programs of each width one. `own` is that
// of the program's own width.
enum class RegistryView { own, wide, narrow };

// Rights asked for when a key is opened.
namespace access {
inline constexpr std::uint32_t queryValue = 1;
inline constexpr std::uint32_t enumerateSubKeys = 8;
inline constexpr std::uint32_t change = 63;  // all six specific rights, none of the standard ones
}  // namespace access

// Type numbers of values.
namespace valuetype {
inline constexpr std::uint32_t string = 1;
inline constexpr std::uint32_t expandString = 2;
inline constexpr std::uint32_t binary = 3;
inline constexpr std::uint32_t dword = 4;
inline constexpr std::uint32_t dwordBigEndian = 5;
inline constexpr std::uint32_t multiString = 7;
}  // namespace valuetype

// What a value holds.
struct ValueData {
    std::uint32_t type = 0;
    std::string bytes;
};

// The machine's registry, as narrow as the store needs it. Texts are bytes of the system code page; a name or path
// ends at its first zero byte. Names are found without regard to case. A path's parts are separated by backslashes;
// doubled and trailing ones count once, a leading one is refused. Every operation answers the platform's status.
class Registry {
public:
    virtual ~Registry() = default;

    // Opens an existing key below `parent`. On failure `key` is 0. Every opened key is the caller's to close.
    [[nodiscard]] virtual RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                                 RegistryKey& key) = 0;
    // The same, making every missing key of the path on the way.
    [[nodiscard]] virtual RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                                   RegistryKey& key) = 0;
    virtual RegistryStatus closeKey(RegistryKey key) = 0;

    // Reads a value's type, bytes and size in bytes. `size` holds the room at `data` on the way in and the value's
    // size on the way out; too little room is moreData, with nothing copied. An empty name is the key's default value.
    [[nodiscard]] virtual RegistryStatus queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                                    void* data, std::uint32_t& size) = 0;
    // Writes a value. No data with size 1 stands for an empty string and is stored as its terminator. A text whose
    // terminator is not counted is stored with it; it must stand behind the text all the same.
    [[nodiscard]] virtual RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                                  const void* data, std::uint32_t size) = 0;

    // Deletes a key with its values. A key that has subkeys is refused with accessDenied.
    [[nodiscard]] virtual RegistryStatus deleteKey(RegistryKey parent, const std::string& path) = 0;
    [[nodiscard]] virtual RegistryStatus deleteValue(RegistryKey key, const std::string& name) = 0;

    // Gives the name of the subkey at `index` with its terminator; `capacity` is the room in bytes.
    [[nodiscard]] virtual RegistryStatus enumKey(RegistryKey key, std::uint32_t index, char* name,
                                                 std::uint32_t capacity) = 0;
    // Gives the name of the value at `index` with its terminator. `length` holds the room in bytes on the way in and
    // the name's length, without terminator, on the way out; too little room is moreData. If `data` is asked for, it
    // gets what queryValue would read by that name. It gets nothing if the value has to be read by queryValue, because
    // it is large or because the code page lacks a character of its name or text.
    [[nodiscard]] virtual RegistryStatus enumValue(RegistryKey key, std::uint32_t index, char* name,
                                                   std::uint32_t& length, std::optional<ValueData>* data = nullptr) = 0;
    // Gives the length of the key's longest value name, without terminator, in characters; in bytes it may be longer.
    [[nodiscard]] virtual RegistryStatus queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) = 0;

    // Replaces every %NAME% that the environment knows by its text; the others stay as they are.
    virtual std::string expandEnvironment(const std::string& text) = 0;
};

}  // namespace vrix
