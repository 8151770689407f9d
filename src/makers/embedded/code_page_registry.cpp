#include "makers/embedded/code_page_registry.h"

#include <algorithm>

#include "common/code_page.h"
#include "common/utf8.h"

namespace vrix {

namespace {

constexpr std::size_t pathLimit = 260;  // in UTF-16 code units

// Up to the first zero byte.
std::string decoded(const std::string& name) { return systemEncoding().decode(name.c_str()); }

// Runs a call with the path in UTF-8. A null handle is refused before the path is checked.
template <class Call>
RegistryStatus onPath(RegistryKey parent, const std::string& path, const Call& call) {
    const std::string text = decoded(path);
    return parent != 0 && utf16Size(text) > pathLimit ? RegistryStatus::moreData : call(text);
}

void encode(ValueData& value) {
    if (valuetype::isText(value.type)) value.bytes = systemEncoding().encode(value.bytes);
}

void encode(std::vector<std::string>& names) {
    for (std::string& name : names) name = systemEncoding().encode(name);
}

}  // namespace

RegistryStatus CodePageRegistry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                         RegistryKey& key) {
    key = 0;
    return onPath(parent, path, [&](const std::string& text) { return inner().openKey(parent, text, rights, key); });
}

RegistryStatus CodePageRegistry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                           RegistryKey& key) {
    key = 0;
    return onPath(parent, path, [&](const std::string& text) { return inner().createKey(parent, text, rights, key); });
}

RegistryStatus CodePageRegistry::queryValue(RegistryKey key, const std::string& name, ValueData& value) {
    const RegistryStatus status = inner().queryValue(key, decoded(name), value);
    if (status == RegistryStatus::success) encode(value);
    return status;
}

RegistryStatus CodePageRegistry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                          std::string_view bytes) {
    const std::string text = valuetype::isText(type) ? systemEncoding().decode(bytes) : std::string(bytes);
    return inner().setValue(key, decoded(name), type, text);
}

RegistryStatus CodePageRegistry::deleteKey(RegistryKey parent, const std::string& path) {
    return onPath(parent, path, [&](const std::string& text) { return inner().deleteKey(parent, text); });
}

RegistryStatus CodePageRegistry::deleteValue(RegistryKey key, const std::string& name) {
    return inner().deleteValue(key, decoded(name));
}

RegistryStatus CodePageRegistry::listKeys(RegistryKey key, std::vector<std::string>& names) {
    const RegistryStatus status = inner().listKeys(key, names);
    encode(names);
    return status;
}

RegistryStatus CodePageRegistry::listValues(RegistryKey key, std::vector<std::string>& names,
                                            std::vector<ValueData>* values) {
    const RegistryStatus status = inner().listValues(key, names, values);
    encode(names);
    if (values != nullptr) std::for_each(values->begin(), values->end(), [](ValueData& value) { encode(value); });
    return status;
}

std::string CodePageRegistry::expandEnvironment(const std::string& text) {
    return systemEncoding().encode(inner().expandEnvironment(decoded(text)));
}

}  // namespace vrix
