#include "makers/kept/kept_keys.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vrix {

void KeptKeys::release() {
    renew();
    for (auto& [handle, key] : lent_) key.path.clear();
    for (const Key& key : idle_) inner_.closeKey(key.handle);
    idle_.clear();
}

RegistryStatus KeptKeys::lend(RegistryKey parent, const std::string& path, std::uint32_t rights, bool makes,
                              RegistryKey& key) {
    renew();
    key = 0;
    Key lent{parent == hive::localMachine ? path : "", rights, makes};
    const auto idle = std::find_if(idle_.begin(), idle_.end(),
                                   [&](const Key& kept) { return kept.path == lent.path && kept.rights == rights; });
    if (idle != idle_.end()) {
        lent.handle = idle->handle;
        idle_.erase(idle);
        unproven_ = lastHandle_ + 1;
    } else {
        const RegistryStatus status = take(innerKey(parent), path, lent);
        if (status != RegistryStatus::success) return status;
    }
    key = ++lastHandle_;
    lent_.emplace(key, std::move(lent));
    return RegistryStatus::success;
}

RegistryStatus KeptKeys::closeKey(RegistryKey key) {
    const auto lent = lent_.find(key);
    if (lent == lent_.end()) return inner_.closeKey(innerKey(key));
    if (key == unproven_ && lent->second.makes) renew();
    if (key == unproven_) unproven_ = 0;
    Key closed = std::move(lent->second);
    lent_.erase(lent);
    if (closed.path.empty()) return inner_.closeKey(closed.handle);
    constexpr std::size_t mostIdle = 4;  // the Topics of a Product are written into three keys in turn
    if (idle_.size() == mostIdle) {
        inner_.closeKey(idle_.front().handle);
        idle_.erase(idle_.begin());
    }
    idle_.push_back(std::move(closed));
    return RegistryStatus::success;
}

RegistryStatus KeptKeys::take(RegistryKey parent, const std::string& path, Key& key) {
    return key.makes ? inner_.createKey(parent, path, key.rights, key.handle)
                     : inner_.openKey(parent, path, key.rights, key.handle);
}

// Opens or makes the unproven key now, as the call that lent it was asked to.
RegistryStatus KeptKeys::renew() {
    const auto lent = lent_.find(std::exchange(unproven_, 0));
    if (lent == lent_.end()) return RegistryStatus::success;
    Key fresh = lent->second;
    const RegistryStatus status = take(hive::localMachine, fresh.path, fresh);
    if (status == RegistryStatus::success) inner_.closeKey(std::exchange(lent->second.handle, fresh.handle));
    return status;
}

// The predefined hives are negative numbers. Any other number that is not lent is no key.
RegistryKey KeptKeys::innerKey(RegistryKey key) const {
    const auto lent = lent_.find(key);
    if (lent != lent_.end()) return lent->second.handle;
    return key < 0 ? key : 0;
}

// Only success shows that an unproven key still exists: a call may be refused before the registry looks at the key.
template <class Call>
RegistryStatus KeptKeys::on(RegistryKey key, const Call& call) {
    if (key != unproven_) renew();
    const RegistryStatus status = call(innerKey(key));
    if (key != unproven_) return status;
    if (status == RegistryStatus::success) unproven_ = 0;
    if (status != RegistryStatus::keyDeleted) return status;
    const RegistryStatus renewed = renew();
    return renewed == RegistryStatus::success ? call(innerKey(key)) : renewed;
}

RegistryStatus KeptKeys::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                                    std::uint32_t& size) {
    return on(key, [&, room = size](RegistryKey inner) {
        size = room;
        return inner_.queryValue(inner, name, type, data, size);
    });
}

RegistryStatus KeptKeys::setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                                  std::uint32_t size) {
    return on(key, [&](RegistryKey inner) { return inner_.setValue(inner, name, type, data, size); });
}

RegistryStatus KeptKeys::deleteKey(RegistryKey parent, const std::string& path) {
    release();
    return inner_.deleteKey(innerKey(parent), path);
}

RegistryStatus KeptKeys::deleteValue(RegistryKey key, const std::string& name) {
    return on(key, [&](RegistryKey inner) { return inner_.deleteValue(inner, name); });
}

RegistryStatus KeptKeys::enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) {
    return on(key, [&](RegistryKey inner) { return inner_.enumKey(inner, index, name, capacity); });
}

RegistryStatus KeptKeys::enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length,
                                   std::optional<ValueData>* data) {
    return on(key, [&, room = length](RegistryKey inner) {
        length = room;
        return inner_.enumValue(inner, index, name, length, data);
    });
}

RegistryStatus KeptKeys::queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) {
    return on(key, [&](RegistryKey inner) { return inner_.queryInfoKey(inner, longestValueName); });
}

}  // namespace vrix
