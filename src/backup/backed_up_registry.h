#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/forwarding_registry.h"

namespace vrix {

// A decorator of a registry that makes a backup before the first call that may change something. Without such a call it
// makes none.
class BackedUpRegistry final : public ForwardingRegistry {
public:
    using BackUp = std::function<void()>;

    // What `backUp` throws leaves that first call, which then has changed nothing. It is not called again.
    BackedUpRegistry(Registry& inner, BackUp backUp) : ForwardingRegistry(inner), backUp_(std::move(backUp)) {}

    // Creating a key that exists, or one that may not be opened, changes nothing.
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override {
        if (backUp_) {
            const RegistryStatus status = openKey(parent, path, rights, key);
            if (status != RegistryStatus::fileNotFound) return status;
        }
        return changing().createKey(parent, path, rights, key);
    }
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                            std::string_view bytes) override {
        return changing().setValue(key, name, type, bytes);
    }
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override {
        return changing().deleteKey(parent, path);
    }
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override {
        return changing().deleteValue(key, name);
    }

private:
    Registry& changing() {
        if (const BackUp backUp = std::exchange(backUp_, nullptr)) backUp();
        return inner();
    }

    BackUp backUp_;
};

}  // namespace vrix
