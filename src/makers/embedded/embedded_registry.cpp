#include "makers/embedded/embedded_registry.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "common/utf8.h"

namespace vrix {

namespace {

// In UTF-16 code units.
constexpr std::size_t keyNameLimit = 255;
constexpr std::size_t valueNameLimit = 16'383;
constexpr std::size_t levelLimit = 512;
constexpr std::uint32_t sizeLimit = 1u << 30;
constexpr std::uint32_t setValueRight = 2;

// A text as the platform's calls see it: up to its first zero byte.
std::string cut(const std::string& text) { return text.substr(0, text.find('\0')); }

bool isHive(RegistryKey key) { return key == hive::localMachine || key == hive::classesRoot; }

RegistryStatus refusedIf(bool isRefused, RegistryStatus status) { return isRefused ? status : RegistryStatus::success; }

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
    if (status == RegistryStatus::success && !place.missing.empty()) status = change(place, Change::Kind::makeKey);
    if (status == RegistryStatus::success) key = open(place.key, rights);
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
    PathMatch place;
    const RegistryStatus status = resolveHandle(key, setValueRight, place.key);
    if (status != RegistryStatus::success) return status;
    std::string data(bytes);
    // The platform adds a terminator that was not counted if it finds one behind the text. Here it is added always.
    if (valuetype::isText(type) && !data.empty() && data.back() != '\0') data += '\0';
    return change(place, Change::Kind::setValue, cut(name), type, std::move(data));
}

RegistryStatus EmbeddedRegistry::deleteKey(RegistryKey parent, const std::string& path) {
    PathMatch place;
    const RegistryStatus status = resolve(parent, path, place);
    return status == RegistryStatus::success ? change(place, Change::Kind::removeKey) : status;
}

RegistryStatus EmbeddedRegistry::deleteValue(RegistryKey key, const std::string& name) {
    PathMatch place;
    const RegistryStatus status = resolveHandle(key, setValueRight, place.key);
    return status == RegistryStatus::success ? change(place, Change::Kind::removeValue, cut(name)) : status;
}

RegistryStatus EmbeddedRegistry::listKeys(RegistryKey key, std::vector<std::string>& names) {
    names.clear();
    KeyPointer found;
    const RegistryStatus status = resolveHandle(key, access::enumerateSubKeys, found);
    if (status != RegistryStatus::success) return status;
    for (const auto& below : found->keys.entries()) names.push_back(below.name);
    return status;
}

RegistryStatus EmbeddedRegistry::listValues(RegistryKey key, std::vector<std::string>& names,
                                            std::vector<ValueData>* values) {
    names.clear();
    if (values != nullptr) values->clear();
    KeyPointer found;
    const RegistryStatus status = resolveHandle(key, access::queryValue, found);
    if (status != RegistryStatus::success) return status;
    for (const auto& [name, value] : found->values.entries()) {
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
    return status == RegistryStatus::success ? walkPath(cut(path), Spelling::any, place) : status;
}

RegistryStatus EmbeddedRegistry::walkPath(const std::string& path, Spelling spelling, PathMatch& place) {
    if (path.starts_with('\\')) return RegistryStatus::badPathName;
    std::size_t from = 0;
    while ((from = path.find_first_not_of('\\', from)) != std::string::npos) {
        const std::string part = path.substr(from, path.find('\\', from) - from);
        from += part.size();
        const auto* next = place.missing.empty() ? place.key->keys.find(part) : nullptr;
        if (next != nullptr && (spelling == Spelling::any || next->name == part)) {
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
    if (key.parent == nullptr) return {};
    const std::string above = pathOf(*key.parent);
    return above.empty() ? key.name : above + '\\' + key.name;
}

// ---- Changes ----

RegistryStatus EmbeddedRegistry::change(PathMatch& place, Change::Kind kind, const std::string& name,
                                        std::uint32_t type, std::string data) {
    const auto* known = place.key->values.find(name);
    Change change{kind, pathOf(*place.key), known == nullptr ? name : known->name, type, std::move(data)};
    for (const std::string& part : place.missing) change.path += '\\' + part;
    RegistryStatus status = check(place, change);
    if (status == RegistryStatus::success) status = persist(change);
    if (status == RegistryStatus::success) apply(place, std::move(change));
    return status;
}

bool EmbeddedRegistry::replay(Change change) {
    // A name with a zero byte could not be reached by any call.
    if (cut(change.path) != change.path || cut(change.name) != change.name) return false;
    PathMatch place{machine_, {}};
    if (walkPath(change.path, Spelling::exact, place) != RegistryStatus::success) return false;
    if (check(place, change) != RegistryStatus::success) return false;
    apply(place, std::move(change));
    return true;
}

RegistryStatus EmbeddedRegistry::check(const PathMatch& place, const Change& change) {
    const Key& key = *place.key;
    if (change.kind == Change::Kind::makeKey) return checkNewKeys(place);
    if (!place.missing.empty()) return RegistryStatus::fileNotFound;
    switch (change.kind) {
        case Change::Kind::removeKey:
            return refusedIf(key.permanent || !key.keys.entries().empty(), RegistryStatus::accessDenied);
        case Change::Kind::setValue:
            return refusedIf(utf16Size(change.name) > valueNameLimit, RegistryStatus::invalidParameter);
        case Change::Kind::removeValue:
            return refusedIf(key.values.findExactly(change.name) == nullptr, RegistryStatus::fileNotFound);
        default: return RegistryStatus::invalidParameter;
    }
}

RegistryStatus EmbeddedRegistry::checkNewKeys(const PathMatch& place) {
    const bool isThere = place.missing.empty();
    const bool inHive = place.key->parent == nullptr;
    const bool tooDeep = place.key->level + place.missing.size() > levelLimit;
    const bool tooLong = std::any_of(place.missing.begin(), place.missing.end(),
                                     [](const std::string& part) { return utf16Size(part) > keyNameLimit; });
    return refusedIf(isThere || inHive || tooDeep || tooLong, RegistryStatus::invalidParameter);
}

void EmbeddedRegistry::apply(PathMatch& place, Change change) {
    Key& key = *place.key;
    switch (change.kind) {
        case Change::Kind::makeKey:
            for (const std::string& part : place.missing) place.key = makeKey(*place.key, part);
            break;
        case Change::Kind::removeKey:
            key.removed = true;
            key.parent->keys.remove(key.name);
            break;
        case Change::Kind::setValue:
            key.values.set(std::move(change.name), {change.type, std::move(change.data)});
            break;
        case Change::Kind::removeValue: key.values.remove(change.name); break;
    }
}

EmbeddedRegistry::KeyPointer EmbeddedRegistry::makeKey(Key& parent, const std::string& name) {
    auto key = std::make_shared<Key>();
    key->name = name;
    key->parent = &parent;
    key->level = parent.level + 1;
    parent.keys.set(name, key);
    return key;
}

void EmbeddedRegistry::forEachChange(const Key& key, const Listener& listener) {
    const std::string path = pathOf(key);
    if (!key.permanent) listener({Change::Kind::makeKey, path});
    for (const auto& [name, value] : key.values.entries()) {
        listener({Change::Kind::setValue, path, name, value.type, value.bytes});
    }
    for (const auto& below : key.keys.entries()) forEachChange(*below.item, listener);
}

}  // namespace vrix
