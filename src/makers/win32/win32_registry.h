#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"

struct HKEY__;

namespace vrix {

// The registry of the machine, straight by the platform's narrow calls. A text of more than 32,766 characters is not
// expanded, and an expansion ends there: the platform has no more.
//
// The store opens or makes a key, reads or writes one value and closes it, value by value, and asks for the size of a
// value before it asks for the data, and it lists a key's names before it reads the values in that order. So that all
// this costs one request for each value, the handles of a few closed keys stay open for the next call with the very
// same path and rights, a question for a size brings the data along, for the question that follows at once, and so does
// a listing, for the reads that follow at once. Others can tell as little as that allows:
// - every write goes to the platform before its call returns; only making a key that was there a moment ago waits for
//   the next call, which makes it first where another program has deleted it meanwhile. If the platform refuses that,
//   the refusal comes from that call, createKey having answered success;
// - an openKey that is served so says that the key was there a moment ago. Where another program has deleted it
//   meanwhile, the next call opens it anew, or answers as that open does;
// - the values of a listing are those at its end, whatever another program does before they are read: they are kept
//   only where the key's time of change is the same then as in front of it, and old enough that no change could hide in
//   it. Reads in another order and all other calls but opening and closing that key drop them. So does a name that a
//   single read would not find: one that the code page cannot show;
// - a handle is lent to one caller at a time, and a closed one is refused as the platform refuses it;
// - nothing is kept across a deleteKey of this registry or the end of an event of the program. A key that another
//   program renames within one event, or takes the rights to away, is still written to until that event ends.
class Win32Registry final : public Registry {
public:
    Win32Registry() = default;
    ~Win32Registry() override;
    Win32Registry(const Win32Registry&) = delete;
    Win32Registry& operator=(const Win32Registry&) = delete;

    // Closes all keys that nobody has open. To be called at the end of each event, and before the user is waited for.
    void release();

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override;
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override;
    RegistryStatus closeKey(RegistryKey key) override;
    RegistryStatus queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                              std::uint32_t& size) override;
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                            std::uint32_t size) override;
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override;
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override;
    RegistryStatus enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) override;
    RegistryStatus enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length) override;
    RegistryStatus queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) override;
    std::string expandEnvironment(const std::string& text) override;

private:
    // A key below the machine's hive that was given out; the handle is what the caller knows it by.
    struct Kept {
        HKEY__* handle;
        std::string path;
        std::uint32_t rights;
        bool made;                  // given out by createKey the last time
        HKEY__* renewed = nullptr;  // stands for the handle since that was found to be out of date
    };
    using Keys = std::vector<Kept>;
    // A value that came along with its size.
    struct Peek {
        RegistryKey key = 0;
        std::string name;
        std::uint32_t type = 0;
        std::string data;
    };
    // The values of a key as they came along with their names, and which of them is to be read next.
    struct Listing {
        std::string path;  // empty for none
        std::uint64_t changed = 0;
        bool atEnd = false;
        std::vector<Peek> values;
        std::size_t next = 0;
    };
    static Keys::iterator find(Keys& keys, RegistryKey key);
    HKEY__* reach(RegistryKey key);
    RegistryStatus settle();
    RegistryStatus give(RegistryKey parent, const std::string& path, std::uint32_t rights, bool make, RegistryKey& key);
    bool isListed(const Listing& listing, RegistryKey key) const;
    bool list(Listing& listing, RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length);
    template <class Call>
    RegistryStatus on(RegistryKey key, const Call& call);

    Keys lent_;                 // open for a caller
    Keys idle_;                 // closed by their callers, the last at the end
    RegistryKey unproven_ = 0;  // lent out of idle_, and not yet seen to be still there
    Peek peek_;                 // of the last call
    Listing listing_;           // each call takes it away, and puts it back if it goes on with it
};

}  // namespace vrix
