#pragma once

#include <string>

#include "platform/registry.h"
#include "store/settings_table.h"

namespace vrix {

// The application under which all settings are kept.
inline constexpr const char* application = "Vrix";

// The program's one road to its settings: texts by application, section and key, all of them below
// HKEY_LOCAL_MACHINE\Software. A section may hold backslashes. A failure of the registry never shows: a read gives its
// default, a write or a delete does nothing.
class cRegistryFunctions {
public:
    explicit cRegistryFunctions(Registry& registry) : registry_(registry) {}

    // The value's text. `fallback` for a missing key or value, and for one that holds empty text.
    std::string GetSetting(const std::string& sApplication, const std::string& sSection, const std::string& sKey,
                           const std::string& fallback);

    // All values of a section in the platform's order, or empty text if there are none. Where an unnamed value stands
    // among named ones, the texts from there on belong to the next name and the last name falls away. Failure 9 for a
    // section with nothing but an unnamed value.
    SettingsTable GetAllSettings(const std::string& sApplication, const std::string& sSection);

    // Deletes one value; with an empty key the whole section's key, unless it has subkeys.
    void DeleteSetting(const std::string& sApplication, const std::string& sSection, const std::string& sKey);

    // Writes one value and makes the keys on the way.
    void SaveSetting(const std::string& sApplication, const std::string& sSection, const std::string& sKey,
                     const std::string& setting);

private:
    Registry& registry_;
};

}  // namespace vrix
