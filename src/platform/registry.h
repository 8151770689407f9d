#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// 64-bit Windows keeps two registries below the machine's Software key, one for 64-bit and one for 32-bit programs.
// `own` is the one for programs like the running one.
enum class RegistryView { own, bits64, bits32 };

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

// Whether values of that type are texts, whose bytes end with a terminator.
constexpr bool isText(std::uint32_t type) { return type == string || type == expandString || type == multiString; }
}  // namespace valuetype

// What a value holds. The bytes of a text are its characters with their terminator.
struct ValueData {
    std::uint32_t type = 0;
    std::string bytes{};
    bool operator==(const ValueData&) const = default;
};

// The machine's registry, as narrow as the store needs it. Its texts, which are names, paths and values of the types 1,
// 2 and 7, are UTF-8, or bytes of the system code page for the pages; each maker says which. A name or path ends at its
// first zero byte. Names are found without regard to case. A path's parts are separated by backslashes; doubled and
// trailing ones count once, a leading one is refused. Every operation answers the platform's status.
class Registry {
public:
    virtual ~Registry() = default;

    // Opens an existing key below `parent`. On failure `key` is 0. The caller closes every opened key.
    [[nodiscard]] virtual RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                                 RegistryKey& key) = 0;
    // The same, making every missing key of the path on the way.
    [[nodiscard]] virtual RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                                   RegistryKey& key) = 0;
    virtual RegistryStatus closeKey(RegistryKey key) = 0;

    // Reads a value. An empty name is the key's default value. If the platform reports type and size and then refuses
    // the bytes, they are zeros and the status is success.
    [[nodiscard]] virtual RegistryStatus queryValue(RegistryKey key, const std::string& name, ValueData& value) = 0;
    // Writes a value. A text that is not empty gets the terminator that it lacks.
    [[nodiscard]] virtual RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                                  std::string_view bytes) = 0;

    // Deletes a key with its values. A key that has subkeys is refused with accessDenied.
    [[nodiscard]] virtual RegistryStatus deleteKey(RegistryKey parent, const std::string& path) = 0;
    [[nodiscard]] virtual RegistryStatus deleteValue(RegistryKey key, const std::string& name) = 0;

    // Gives the names of all subkeys in the order of the platform. After a failure those before it are there.
    [[nodiscard]] virtual RegistryStatus listKeys(RegistryKey key, std::vector<std::string>& names) = 0;
    // The same for the names of all values, the unnamed one among them, and on demand for what they hold. A name may
    // hold a zero character; such a name finds nothing.
    [[nodiscard]] virtual RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                                                    std::vector<ValueData>* values = nullptr) = 0;

    // Expands every %NAME% of a variable that the environment has; the others stay as they are.
    virtual std::string expandEnvironment(const std::string& text) = 0;
};

}  // namespace vrix
