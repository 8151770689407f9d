#include "makers/embedded/embedded_registry.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "common/utf8.h"

namespace vrix {

namespace {

// In units of UTF-16.
constexpr std::size_t keyNameLimit = 255;
constexpr std::size_t valueNameLimit = 16'383;
constexpr std::size_t levelLimit = 512;
constexpr std::uint32_t sizeLimit = 1u << 30;
constexpr std::uint32_t setValueRight = 2;

// A text as the platform's calls see it: up to its first zero byte.
std::string cut(const std::string& text) { return text.substr(0, text.find('\0')); }

bool isHive(RegistryKey key) { return key == hive::localMachine || key == hive::classesRoot; }

}  // namespace

EmbeddedRegistry::EmbeddedRegistry(Environment environment)
    : environment_(std::move(environment)), machine_(std::make_shared<Key>()) {
    const KeyPointer software = makeKey(*machine_, "Software");
    classes_ = makeKey(*software, "Classes");
    machine_->permanent = software->permanent = classes_->permanent = true;
}

// ---- Calls ----

RegistryStatus EmbeddedRegistry::openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                         RegistryKey& key) {
    key = 0;
    PathMatch place;
    if (const RegistryStatus status = resolve(parent, path, place); status != RegistryStatus::success) return status;
    if (!place.missing.empty()) return RegistryStatus::fileNotFound;
    // A hive opened by no path is the hive itself, with all its rights.
    key = isHive(parent) && cut(path).empty() ? parent : open(place.key, rights);
    return RegistryStatus::success;
}

RegistryStatus EmbeddedRegistry::createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                                           RegistryKey& key) {
    key = 0;
    PathMatch place;
    RegistryStatus status = resolve(parent, path, place);
    if (status == RegistryStatus::success) status = mayMake(place);
    if (status == RegistryStatus::success && !place.missing.empty()) {
        Change change(Change::Kind::makeKey, pathOf(*place.key));
        for (const std::string& part : place.missing) change.path += '\\' + part;
        status = persist(change);
    }
    if (status == RegistryStatus::success) key = open(makeKeys(place), rights);
    return status;
}

RegistryStatus EmbeddedRegistry::closeKey(RegistryKey key) {
    return isHive(key) || open_.erase(key) > 0 ? RegistryStatus::success : RegistryStatus::invalidHandle;
}

RegistryStatus EmbeddedRegistry::queryValue(RegistryKey key, const std::string& name, ValueData& value) {
    KeyPointer found;
    if (const RegistryStatus status = resolveHandle(key, access::queryValue, found); status != RegistryStatus::success)
        return status;
    const auto* entry = found->values.find(cut(name));
    if (entry == nullptr) return RegistryStatus::fileNotFound;
    value = entry->item;
    return RegistryStatus::success;
}

RegistryStatus EmbeddedRegistry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                          std::string_view bytes) {
    if (!isHive(key) && !open_.contains(key)) return RegistryStatus::invalidHandle;
    if (utf16Size(cut(name)) > valueNameLimit || bytes.size() > sizeLimit) return RegistryStatus::invalidParameter;
    KeyPointer found;
    if (const RegistryStatus status = resolveHandle(key, setValueRight, found); status != RegistryStatus::success)
        return status;
    Change change(Change::Kind::setValue, pathOf(*found), cut(name), type, std::string(bytes));
    if (const auto* entry = found->values.find(change.name)) change.name = entry->name;
    // The platform adds a terminator that was not counted if it finds one behind the text. Here it is added always.
    if (valuetype::isText(type) && !bytes.empty() && bytes.back() != '\0') change.data += '\0';
    if (const RegistryStatus status = persist(change); status != RegistryStatus::success) return status;
    put(*found, std::move(change));
    return RegistryStatus::success;
}

RegistryStatus EmbeddedRegistry::deleteKey(RegistryKey parent, const std::string& path) {
    PathMatch place;
    if (const RegistryStatus status = resolve(parent, path, place); status != RegistryStatus::success) return status;
    if (!place.missing.empty()) return RegistryStatus::fileNotFound;
    RegistryStatus status = mayRemove(*place.key);
    if (status == RegistryStatus::success) status = persist(Change(Change::Kind::removeKey, pathOf(*place.key)));
    if (status == RegistryStatus::success) removeKey(*place.key);
    return status;
}

RegistryStatus EmbeddedRegistry::deleteValue(RegistryKey key, const std::string& name) {
    KeyPointer found;
    RegistryStatus status = resolveHandle(key, setValueRight, found);
    const auto* entry = status == RegistryStatus::success ? found->values.find(cut(name)) : nullptr;
    if (status == RegistryStatus::success && entry == nullptr) status = RegistryStatus::fileNotFound;
    if (status != RegistryStatus::success) return status;
    status = persist(Change(Change::Kind::removeValue, pathOf(*found), entry->name));
    if (status == RegistryStatus::success) found->values.remove(entry->name);
    return status;
}

RegistryStatus EmbeddedRegistry::listKeys(RegistryKey key, std::vector<std::string>& names) {
    names.clear();
    KeyPointer found;
    const RegistryStatus status = resolveHandle(key, access::enumerateSubKeys, found);
    for (std::size_t i = 0; found && i < found->keys.size(); ++i) names.push_back(found->keys.at(i).name);
    return status;
}

RegistryStatus EmbeddedRegistry::listValues(RegistryKey key, std::vector<std::string>& names,
                                            std::vector<ValueData>* values) {
    names.clear();
    if (values != nullptr) values->clear();
    KeyPointer found;
    const RegistryStatus status = resolveHandle(key, access::queryValue, found);
    for (std::size_t i = 0; found && i < found->values.size(); ++i) {
        const auto& [name, value] = found->values.at(i);
        names.push_back(name);
        if (values != nullptr) values->push_back(value);
    }
    return status;
}

std::string EmbeddedRegistry::expandEnvironment(const std::string& text) {
    const std::string known = cut(text);
    std::string expanded;
    std::size_t from = 0;
    for (;;) {
        const auto start = known.find('%', from);
        const auto end = start == std::string::npos ? start : known.find('%', start + 1);
        if (end == std::string::npos) return expanded + known.substr(from);
        const std::string name = known.substr(start + 1, end - start - 1);
        const auto value = environment_ ? environment_(name) : std::nullopt;
        expanded += known.substr(from, start - from) + value.value_or('%' + name + '%');
        from = end + 1;
    }
}

// ---- Handles and paths ----

RegistryStatus EmbeddedRegistry::resolveHandle(RegistryKey handle, std::uint32_t rights, KeyPointer& key) const {
    if (isHive(handle)) {
        key = handle == hive::localMachine ? machine_ : classes_;
        return RegistryStatus::success;
    }
    const auto found = open_.find(handle);
    if (found == open_.end()) return RegistryStatus::invalidHandle;
    if ((found->second.rights & rights) != rights) return RegistryStatus::accessDenied;
    if (found->second.key->removed) return RegistryStatus::keyDeleted;
    key = found->second.key;
    return RegistryStatus::success;
}

// The rights of the parent's handle do not matter for a path below it, as on the platform.
RegistryStatus EmbeddedRegistry::resolve(RegistryKey parent, const std::string& path, PathMatch& place) const {
    const RegistryStatus status = resolveHandle(parent, 0, place.key);
    return status == RegistryStatus::success ? walkPath(cut(path), place) : status;
}

RegistryStatus EmbeddedRegistry::walkPath(const std::string& path, PathMatch& place) {
    if (path.starts_with('\\')) return RegistryStatus::badPathName;
    std::size_t from = 0;
    while ((from = path.find_first_not_of('\\', from)) != std::string::npos) {
        const std::string part = path.substr(from, path.find('\\', from) - from);
        from += part.size();
        const auto* next = place.missing.empty() ? place.key->keys.find(part) : nullptr;
        if (next != nullptr) {
            place.key = next->item;
        } else if (utf16Size(part) > keyNameLimit && place.missing.empty()) {
            return RegistryStatus::invalidParameter;
        } else {
            place.missing.push_back(part);
        }
    }
    return RegistryStatus::success;
}

RegistryKey EmbeddedRegistry::open(const KeyPointer& key, std::uint32_t rights) {
    constexpr RegistryKey step = 4;
    constexpr RegistryKey highest = std::numeric_limits<std::int32_t>::max() - step;
    do lastHandle_ = lastHandle_ < highest ? lastHandle_ + step : step;
    while (open_.contains(lastHandle_));
    open_[lastHandle_] = {key, rights};
    return lastHandle_;
}

std::string EmbeddedRegistry::pathOf(const Key& key) {
    std::string path = key.name;
    for (const Key* above = key.parent; above != nullptr && above->parent != nullptr; above = above->parent) {
        path.insert(0, above->name + '\\');
    }
    return path;
}

// ---- Changes ----

RegistryStatus EmbeddedRegistry::mayMake(const PathMatch& place) {
    if (place.missing.empty()) return RegistryStatus::success;
    const bool inHive = place.key->parent == nullptr;
    const bool tooDeep = place.key->level + place.missing.size() > levelLimit;
    const bool tooLong = std::any_of(place.missing.begin(), place.missing.end(),
                                     [](const std::string& part) { return utf16Size(part) > keyNameLimit; });
    return inHive || tooDeep || tooLong ? RegistryStatus::invalidParameter : RegistryStatus::success;
}

RegistryStatus EmbeddedRegistry::mayRemove(const Key& key) {
    return key.permanent || key.keys.size() > 0 ? RegistryStatus::accessDenied : RegistryStatus::success;
}

EmbeddedRegistry::KeyPointer EmbeddedRegistry::makeKeys(const PathMatch& place) {
    KeyPointer key = place.key;
    for (const std::string& part : place.missing) key = makeKey(*key, part);
    return key;
}

EmbeddedRegistry::KeyPointer EmbeddedRegistry::makeKey(Key& parent, const std::string& name) {
    auto key = std::make_shared<Key>();
    key->name = name;
    key->parent = &parent;
    key->level = parent.level + 1;
    parent.keys.add(name, key);
    return key;
}

void EmbeddedRegistry::removeKey(Key& key) {
    key.removed = true;
    key.parent->keys.remove(key.name);
}

void EmbeddedRegistry::put(Key& key, Change change) {
    if (auto* entry = key.values.find(change.name)) {
        entry->item = {change.type, std::move(change.data)};
        return;
    }
    key.values.add(std::move(change.name), {change.type, std::move(change.data)});
}

bool EmbeddedRegistry::replay(Change change) {
    // A name with a zero byte could not be reached by any call.
    if (cut(change.path) != change.path || cut(change.name) != change.name) return false;
    PathMatch place{machine_, {}};
    if (walkPath(change.path, place) != RegistryStatus::success) return false;
    const bool makes = change.kind == Change::Kind::makeKey;
    // Where the change was stored, two letters may be known that are one here: their keys become one.
    const bool isTwin = makes && place.missing.empty() && pathOf(*place.key) != change.path;
    if (makes == place.missing.empty() && !isTwin) return false;
    switch (change.kind) {
        case Change::Kind::makeKey:
            if (mayMake(place) != RegistryStatus::success) return false;
            makeKeys(place);
            return true;
        case Change::Kind::removeKey:
            if (mayRemove(*place.key) != RegistryStatus::success) return false;
            removeKey(*place.key);
            return true;
        case Change::Kind::setValue:
            if (utf16Size(change.name) > valueNameLimit) return false;
            put(*place.key, std::move(change));
            return true;
        case Change::Kind::removeValue:
            if (place.key->values.find(change.name) == nullptr) return false;
            place.key->values.remove(change.name);
            return true;
    }
    return false;
}

void EmbeddedRegistry::forEachChange(const Listener& listener) const { forEachChange(*machine_, "", listener); }

void EmbeddedRegistry::forEachChange(const Key& key, const std::string& path, const Listener& listener) const {
    if (!key.permanent) listener(Change(Change::Kind::makeKey, path));
    for (std::size_t i = 0; i < key.values.size(); ++i) {
        const auto& [name, value] = key.values.at(i);
        listener(Change(Change::Kind::setValue, path, name, value.type, value.bytes));
    }
    for (std::size_t i = 0; i < key.keys.size(); ++i) {
        const auto& [name, below] = key.keys.at(i);
        std::string pathBelow = path;
        if (!path.empty()) pathBelow += '\\';
        forEachChange(*below, pathBelow + name, listener);
    }
}

}  // namespace vrix
