#pragma once

#include "platform/forwarding_registry.h"

namespace vrix {

// A registry of UTF-8 as the platform's narrow calls show it: names, paths and texts are bytes of the system's code
// page. A character that the code page lacks becomes a best-fit character or "?"; such a name finds nothing, or another
// item. A path of more than 260 characters is refused with moreData.
class CodePageRegistry : public ForwardingRegistry {
public:
    using ForwardingRegistry::ForwardingRegistry;

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override;
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override;
    RegistryStatus queryValue(RegistryKey key, const std::string& name, ValueData& value) override;
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                            std::string_view bytes) override;
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override;
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override;
    RegistryStatus listKeys(RegistryKey key, std::vector<std::string>& names) override;
    RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                              std::vector<ValueData>* values = nullptr) override;
    std::string expandEnvironment(const std::string& text) override;
};

}  // namespace vrix
