#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/registry.h"

namespace vrix {

// A registry round another one that has a backup made in front of the first call that may change something. As long as
// nothing is written, nothing is done.
class BackedUpRegistry final : public Registry {
public:
    using BackUp = std::function<void()>;

    // What `backUp` throws comes out of that first call, which then has changed nothing. It is not asked again.
    BackedUpRegistry(Registry& inner, BackUp backUp) : inner_(inner), backUp_(std::move(backUp)) {}

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override {
        return inner_.openKey(parent, path, rights, key);
    }
    // To make a key that is there changes nothing, nor does one that may not be opened.
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override {
        if (backUp_) {
            const RegistryStatus status = inner_.openKey(parent, path, rights, key);
            if (status != RegistryStatus::fileNotFound) return status;
        }
        return changing().createKey(parent, path, rights, key);
    }
    RegistryStatus closeKey(RegistryKey key) override { return inner_.closeKey(key); }
    RegistryStatus queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                              std::uint32_t& size) override {
        return inner_.queryValue(key, name, type, data, size);
    }
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                            std::uint32_t size) override {
        return changing().setValue(key, name, type, data, size);
    }
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override {
        return changing().deleteKey(parent, path);
    }
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override {
        return changing().deleteValue(key, name);
    }
    RegistryStatus enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) override {
        return inner_.enumKey(key, index, name, capacity);
    }
    RegistryStatus enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length,
                             std::optional<ValueData>* data = nullptr) override {
        return inner_.enumValue(key, index, name, length, data);
    }
    RegistryStatus queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) override {
        return inner_.queryInfoKey(key, longestValueName);
    }
    std::string expandEnvironment(const std::string& text) override { return inner_.expandEnvironment(text); }

private:
    Registry& changing() {
        if (const BackUp backUp = std::exchange(backUp_, nullptr)) backUp();
        return inner_;
    }

    Registry& inner_;
    BackUp backUp_;
};

}  // namespace vrix
