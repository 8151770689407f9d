#pragma once

#include <string>
#include <vector>

#include "platform/registry.h"

namespace vrix {

// A registry that hands each call on to another one. Decorators override what they change.
class ForwardingRegistry : public Registry {
public:
    // The inner registry must live longer.
    explicit ForwardingRegistry(Registry& inner) : inner_(inner) {}

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override {
        return inner_.openKey(parent, path, rights, key);
    }
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override {
        return inner_.createKey(parent, path, rights, key);
    }
    RegistryStatus closeKey(RegistryKey key) override { return inner_.closeKey(key); }
    RegistryStatus queryValue(RegistryKey key, const std::string& name, ValueData& value) override {
        return inner_.queryValue(key, name, value);
    }
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                            std::string_view bytes) override {
        return inner_.setValue(key, name, type, bytes);
    }
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override {
        return inner_.deleteKey(parent, path);
    }
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override {
        return inner_.deleteValue(key, name);
    }
    RegistryStatus listKeys(RegistryKey key, std::vector<std::string>& names) override {
        return inner_.listKeys(key, names);
    }
    RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                              std::vector<ValueData>* values = nullptr) override {
        return inner_.listValues(key, names, values);
    }
    std::string expandEnvironment(const std::string& text) override { return inner_.expandEnvironment(text); }

protected:
    Registry& inner() { return inner_; }

private:
    Registry& inner_;
};

}  // namespace vrix
