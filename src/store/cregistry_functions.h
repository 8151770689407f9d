#pragma once

#include <string>
#include <string_view>

#include "store/cregistry.h"
#include "store/settings_table.h"

namespace vrix {

// The application under which all settings are kept.
inline constexpr std::string_view application = "Vrix";

// The program's only access to its settings: texts by application, section and key, all of them below
// HKEY_LOCAL_MACHINE\Software. A section may hold backslashes. Failures of the registry are ignored: a read gives its
// default, a write or a delete does nothing.
class cRegistryFunctions {
public:
    explicit cRegistryFunctions(Registry& registry) : cursor_(registry) {}

    // The value's text. `fallback` for a missing key or value, and for one that holds empty text.
    std::string GetSetting(std::string_view sApplication, std::string_view sSection, const std::string& sKey,
                           const std::string& fallback);

    // All values of a section in the platform's order, or empty text if there are none. An unnamed value
    // among them is a row without its text: from it on each row has the text of the next name, and the last name is
    // left out. Failure 9 for a section with nothing but an unnamed value.
    SettingsTable GetAllSettings(std::string_view sApplication, std::string_view sSection);

    // Deletes one value; with an empty key the whole section's key, unless it has subkeys.
    void DeleteSetting(std::string_view sApplication, std::string_view sSection, const std::string& sKey);

    // Writes one value and makes the keys on the way.
    void SaveSetting(std::string_view sApplication, std::string_view sSection, const std::string& sKey,
                     const std::string& setting);

    // While the result lives, the keys of this object's reads and writes are cached open.
    [[nodiscard]] cRegistry::KeptKeys keepKeys() { return cRegistry::KeptKeys(cursor_); }

private:
    void pointTo(std::string_view sApplication, std::string_view sSection);

    cRegistry cursor_;
};

}  // namespace vrix
