#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "makers/embedded/ordered_names.h"
#include "platform/registry.h"

namespace vrix {

// Gives the value of an environment variable, or nothing if there is none. It decides whether names are case-sensitive.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

// One change of the registry, with the names of what is there as they are stored. A path counts from the machine's
// hive.
struct Change {
    enum class Kind : std::uint8_t { makeKey = 1, removeKey, setValue, removeValue };

    Kind kind;
    std::string path;
    std::string name{};
    std::uint32_t type = 0;
    std::string data{};
};

// A registry of our own, in memory, that behaves as the platform's. Its texts are UTF-8. The classes hive is the
// machine's Software\Classes; these two keys are always there and no other key can be made directly in the machine's
// hive. Subkeys and values are listed in the order in which they were made. Security, classes of keys and views for
// other processors are left out: every right that is asked for is granted, and every handle has the rights with which
// it was opened.
class EmbeddedRegistry : public Registry {
public:
    explicit EmbeddedRegistry(Environment environment = {});

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) final;
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights, RegistryKey& key) final;
    RegistryStatus closeKey(RegistryKey key) final;
    RegistryStatus queryValue(RegistryKey key, const std::string& name, ValueData& value) final;
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type, std::string_view bytes) final;
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) final;
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) final;
    RegistryStatus listKeys(RegistryKey key, std::vector<std::string>& names) final;
    RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                              std::vector<ValueData>* values = nullptr) final;
    std::string expandEnvironment(const std::string& text) final;

    // Replays a stored change. False, with nothing changed, if it does not fit the tree or if no call could have made
    // it. Names match by exact spelling: so the keys are the same wherever the record is read, even if the letters
    // known here fold two names into one.
    bool replay(Change change);

protected:
    // Called with each change before it is made. Any status but success refuses the change: nothing is changed then.
    virtual RegistryStatus persist(const Change&) { return RegistryStatus::success; }

    // The changes that lead from an empty registry to this one, in order.
    using Listener = std::function<void(const Change&)>;
    void forEachChange(const Listener& listener) const { forEachChange(*machine_, listener); }

private:
    struct Key;
    using KeyPointer = std::shared_ptr<Key>;
    struct Key {
        std::string name;
        Key* parent = nullptr;  // none for the hive; not to be followed from a removed key
        std::size_t level = 0;
        bool permanent = false;
        bool removed = false;
        OrderedNames<KeyPointer> keys;
        OrderedNames<ValueData> values;
    };
    // The deepest key of a path that exists, and the parts that lead on from it.
    struct PathMatch {
        KeyPointer key;
        std::vector<std::string> missing;
    };
    struct Open {
        KeyPointer key;
        std::uint32_t rights = 0;
    };

    // Whether names match in any case, or only by exact spelling.
    enum class Spelling { any, exact };

    RegistryStatus resolveHandle(RegistryKey handle, std::uint32_t rights, KeyPointer& key) const;
    RegistryStatus resolve(RegistryKey parent, const std::string& path, PathMatch& place) const;
    RegistryKey open(const KeyPointer& key, std::uint32_t rights);
    // Checks a change, persists it and makes it. Where keys are made, the place becomes the last of them.
    RegistryStatus change(PathMatch& place, Change::Kind kind, const std::string& name = {}, std::uint32_t type = 0,
                          std::string data = {});

    static RegistryStatus walkPath(const std::string& path, Spelling spelling, PathMatch& place);
    static RegistryStatus check(const PathMatch& place, const Change& change);
    static RegistryStatus checkNewKeys(const PathMatch& place);
    static void apply(PathMatch& place, Change change);
    static KeyPointer makeKey(Key& parent, const std::string& name);
    static std::string pathOf(const Key& key);
    static void forEachChange(const Key& key, const Listener& listener);

    Environment environment_;
    KeyPointer machine_;
    KeyPointer classes_;
    std::map<RegistryKey, Open> open_;
    RegistryKey lastHandle_ = 0;
};

}  // namespace vrix
