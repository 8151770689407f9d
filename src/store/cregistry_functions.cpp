#include "store/cregistry_functions.h"

#include <utility>
#include <vector>

#include "common/code_page.h"
#include "common/runtime_failure.h"

namespace vrix {

// Assigns in place, so that the cursor's text reuses its memory.
void cRegistryFunctions::pointTo(std::string_view sApplication, std::string_view sSection) {
    cursor_.ClassKey = hive::localMachine;
    cursor_.SectionKey.assign("Software\\").append(sApplication).append("\\").append(sSection);
}

std::string cRegistryFunctions::GetSetting(std::string_view sApplication, std::string_view sSection,
                                           const std::string& sKey, const std::string& fallback) {
    pointTo(sApplication, sSection);
    cursor_.ValueKey = sKey;
    const std::string text = textOf(cursor_.Value());
    return text.empty() ? fallback : text;
}

SettingsTable cRegistryFunctions::GetAllSettings(std::string_view sApplication, std::string_view sSection) {
    pointTo(sApplication, sSection);
    const cRegistry::KeptKeys kept(cursor_);
    std::vector<std::string> names;
    std::int32_t count = 0;
    cursor_.EnumerateValues(names, count);
    if (count == 0) return {};
    std::vector<std::string> texts;
    for (const std::string& name : names) {
        if (name.empty()) continue;
        cursor_.ValueKey = name;
        texts.push_back(textOf(cursor_.Value()));
    }
    if (texts.empty()) throw RuntimeFailure(FailureNumber::subscript);
    names.resize(texts.size());  // an unnamed value has a name here, but no text
    return {std::move(names), std::move(texts)};
}

void cRegistryFunctions::DeleteSetting(std::string_view sApplication, std::string_view sSection,
                                       const std::string& sKey) {
    if (sApplication.empty() && sSection.empty()) return;
    pointTo(sApplication, sSection);
    if (sSection.empty()) cursor_.SectionKey.pop_back();  // the separator
    if (sKey.empty()) {
        cursor_.DeleteKey();
    } else {
        cursor_.ValueKey = sKey;
        cursor_.DeleteValue();
    }
}

void cRegistryFunctions::SaveSetting(std::string_view sApplication, std::string_view sSection, const std::string& sKey,
                                     const std::string& setting) {
    pointTo(sApplication, sSection);
    cursor_.ValueKey = wholeCharacters(sKey);
    cursor_.ValueType = static_cast<std::int32_t>(valuetype::string);
    cursor_.Value(setting);
}

}  // namespace vrix
