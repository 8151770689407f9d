#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace vrix {

// A registry round another one, for a program that opens and closes a key for every value. When a key is closed, it
// stays open inside until the end of the event, and serves the next call that opens the same path with the same rights.
// A caller can see two things of that:
// - Such a call asks the inner registry for nothing and succeeds. If another program has deleted the key meanwhile, the
//   next call on the key opens or makes it again before it does its work. If that is refused, it answers the refusal.
// - If another program renames the key or changes its rights, that has no effect until the end of the event.
// Every write reaches the inner registry before the call returns. Each handle is given out once: when it is closed, it
// is refused.
class KeptKeys final : public Registry {
public:
    // The inner registry must live longer.
    explicit KeptKeys(Registry& inner) : inner_(inner) {}
    ~KeptKeys() override { release(); }
    KeptKeys(const KeptKeys&) = delete;
    KeptKeys& operator=(const KeptKeys&) = delete;

    // Closes all keys that no caller has open. To be called at the end of each event and before a wait for the user.
    void release();

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override {
        return lend(parent, path, rights, false, key);
    }
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override {
        return lend(parent, path, rights, true, key);
    }
    RegistryStatus closeKey(RegistryKey key) override;
    RegistryStatus queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                              std::uint32_t& size) override;
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                            std::uint32_t size) override;
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override;
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override;
    RegistryStatus enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) override;
    RegistryStatus enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length,
                             std::optional<ValueData>* data = nullptr) override;
    RegistryStatus queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) override;
    std::string expandEnvironment(const std::string& text) override { return inner_.expandEnvironment(text); }

private:
    struct Key {
        std::string path;  // below the machine's hive; empty if the key is not to be kept
        std::uint32_t rights;
        bool makes;              // given out by createKey
        RegistryKey handle = 0;  // of the inner registry
    };

    RegistryStatus lend(RegistryKey parent, const std::string& path, std::uint32_t rights, bool makes,
                        RegistryKey& key);
    RegistryStatus take(RegistryKey parent, const std::string& path, Key& key);
    RegistryStatus renew();
    RegistryKey innerKey(RegistryKey key) const;
    template <class Call>
    RegistryStatus on(RegistryKey key, const Call& call);

    Registry& inner_;
    std::map<RegistryKey, Key> lent_;  // by the handle that the caller has
    std::vector<Key> idle_;            // closed by their callers, the last one at the end
    RegistryKey lastHandle_ = 0;
    RegistryKey unproven_ = 0;  // was lent from idle_, and no call has shown yet that it still exists
};

}  // namespace vrix
