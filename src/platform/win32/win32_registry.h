#pragma once

#include <string>
#include <vector>

#include "platform/registry.h"

struct HKEY__;

namespace vrix {

// The registry of the machine, straight by the platform's narrow calls. A text of more than 32,766 characters is not
// expanded, and an expansion ends there: the platform has no more.
//
// The store makes a key, writes one value and closes it, value by value. So that a run of writes costs one request
// each, the handles of a few closed keys stay open for the next createKey of the very same path and rights. Others can
// tell as little as that allows:
// - every write goes to the platform before its call returns; only making a key that was there a moment ago waits for
//   the first call on it, and comes before any other call of this registry;
// - where another program has deleted the key meanwhile, that call finds out and makes it, as createKey would have. If
//   the platform refuses that, the refusal comes from this call, createKey having answered success;
// - a handle is lent to one caller at a time, and a closed one is refused as the platform refuses it;
// - nothing is kept across a deleteKey of this registry or the end of an event of the program. A key that another
//   program renames within one event, or takes the rights to away, is still written to until that event ends.
// openKey is never served so: its answer says whether the key is there.
class Win32Registry final : public Registry {
public:
    Win32Registry() = default;
    ~Win32Registry() override;
    Win32Registry(const Win32Registry&) = delete;
    Win32Registry& operator=(const Win32Registry&) = delete;

    // Closes all keys that nobody has open. To be called at the end of each event, and before the user is waited for.
    void release();

    Status openKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) override;
    Status createKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) override;
    Status closeKey(RegistryKey key) override;
    Status queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                      std::uint32_t& size) override;
    Status setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                    std::uint32_t size) override;
    Status deleteKey(RegistryKey parent, const std::string& path) override;
    Status deleteValue(RegistryKey key, const std::string& name) override;
    Status enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) override;
    Status enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) override;
    Status queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) override;
    std::string expandEnvironment(const std::string& text) override;

private:
    // A key below the machine's hive that createKey gave out; the handle is what the caller knows it by.
    struct Made {
        HKEY__* handle;
        std::string path;
        std::uint32_t rights;
        HKEY__* renewed = nullptr;  // stands for the handle since that was found to be out of date
    };
    using Keys = std::vector<Made>;
    static Keys::iterator find(Keys& keys, RegistryKey key);
    HKEY__* reach(RegistryKey key);
    Status settle();
    template <class Call>
    Status on(RegistryKey key, const Call& call);

    Keys lent_;                 // open for a caller
    Keys idle_;                 // closed by their callers, the last at the end
    RegistryKey unproven_ = 0;  // lent out of idle_, and not yet seen to be still there
};

}  // namespace vrix
