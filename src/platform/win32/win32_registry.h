#pragma once

#include "platform/registry.h"

namespace vrix {

// The registry of the machine, straight by the platform's narrow calls. A text of more than 32,766 characters is not
// expanded, and an expansion ends there: the platform has no more.
class Win32Registry final : public Registry {
public:
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
};

}  // namespace vrix
