#include "store/cregistry_functions.h"

#include <utility>
#include <vector>

#include "common/runtime_failure.h"
#include "store/cregistry.h"

namespace vrix {

namespace {

std::string keyPath(const std::string& sApplication, const std::string& sSection) {
    return "Software\\" + sApplication + "\\" + sSection;
}

}  // namespace

std::string cRegistryFunctions::GetSetting(const std::string& sApplication, const std::string& sSection,
                                           const std::string& sKey, const std::string& fallback) {
    cRegistry cursor(registry_);
    cursor.ClassKey = hive::localMachine;
    cursor.SectionKey = keyPath(sApplication, sSection);
    cursor.ValueKey = sKey;
    cursor.ValueType = static_cast<std::int32_t>(valuetype::string);
    std::string text = textOf(cursor.Value());
    if (text.empty()) return fallback;
    return text;
}

SettingsTable cRegistryFunctions::GetAllSettings(const std::string& sApplication, const std::string& sSection) {
    cRegistry cursor(registry_);
    cursor.ClassKey = hive::localMachine;
    cursor.SectionKey = keyPath(sApplication, sSection);
    std::vector<std::string> names;
    std::int32_t count = 0;
    cursor.EnumerateValues(names, count);
    if (count == 0) return {};
    std::vector<std::string> texts;
    for (const std::string& name : names) {
        if (name.empty()) continue;
        cursor.ValueKey = name;
        texts.push_back(textOf(cursor.Value()));
    }
    if (texts.empty()) throw RuntimeFailure(FailureNumber::subscript);
    names.resize(texts.size());  // names by their own index, texts by the count of named values
    return {std::move(names), std::move(texts)};
}

void cRegistryFunctions::DeleteSetting(const std::string& sApplication, const std::string& sSection,
                                       const std::string& sKey) {
    const std::string path = sSection.empty() ? sApplication : sApplication + "\\" + sSection;
    if (path.empty()) return;
    cRegistry cursor(registry_);
    cursor.ClassKey = hive::localMachine;
    cursor.SectionKey = "Software\\" + path;
    if (sKey.empty()) {
        cursor.DeleteKey();
    } else {
        cursor.ValueKey = sKey;
        cursor.DeleteValue();
    }
}

void cRegistryFunctions::SaveSetting(const std::string& sApplication, const std::string& sSection,
                                     const std::string& sKey, const std::string& setting) {
    cRegistry cursor(registry_);
    cursor.ClassKey = hive::localMachine;
    cursor.SectionKey = keyPath(sApplication, sSection);
    cursor.ValueKey = sKey;
    cursor.ValueType = static_cast<std::int32_t>(valuetype::string);
    cursor.Value(setting);
}

}  // namespace vrix
