#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/embedded/ordered_names.h"
#include "platform/registry.h"

namespace vrix {

// Gives the text of an environment name, or nothing. Case is its own affair.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

// One change of the registry. A path counts from the machine's hive.
struct Change {
    enum class Kind : std::uint8_t { makeKey = 1, removeKey, setValue, removeValue };

    Kind kind = Kind::makeKey;
    std::string path;
    std::string name;
    std::uint32_t type = 0;
    std::string data;
};

// A registry of our own that behaves as the platform's. The classes hive is the machine's Software\Classes; these two
// keys are always there and no other key can be made directly in the machine's hive. Subkeys and values are listed in
// the order in which they were made. Security, classes of keys and views for other processors are left out: every
// right that is asked for is granted, and every handle has the rights with which it was opened.
class EmbeddedRegistry : public Registry {
public:
    Status openKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) final;
    Status createKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) final;
    Status closeKey(RegistryKey key) final;
    Status queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                      std::uint32_t& size) final;
    Status setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                    std::uint32_t size) final;
    Status deleteKey(RegistryKey parent, const std::string& path) final;
    Status deleteValue(RegistryKey key, const std::string& name) final;
    Status enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) final;
    Status enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) final;
    Status queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) final;
    std::string expandEnvironment(const std::string& text) final;

protected:
    explicit EmbeddedRegistry(Environment environment);

    // Called with each change before it is made. Any status but success refuses it and leaves the registry as it was.
    virtual Status keep(const Change& change) = 0;

    // Makes a change that was kept earlier. False when it does not fit what is there.
    bool repeat(const Change& change);
    // The changes that lead from an empty registry to this one, in order.
    void tell(const std::function<void(const Change&)>& listener) const;
};

}  // namespace vrix
