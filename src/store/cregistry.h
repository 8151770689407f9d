#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/fixed.h"
#include "platform/registry.h"
#include "store/variant.h"

namespace vrix {

// A file type and the program that opens it. An empty menu text stands for the usual one.
struct ExeAssociation {
    std::string sExePath{};  // quoted or not
    std::string sClassName{};
    std::string sClassDescription{};
    std::string sAssociation{};  // the extension, without its dot
    std::string sOpenMenuText{};
    bool bSupportPrint = false;
    std::string sPrintMenuText{};
    bool bSupportNew = false;
    std::string sNewMenuText{};
    bool bSupportInstall = false;
    std::string sInstallMenuText{};
    std::int32_t lDefaultIconIndex = -1;  // -1: no icon of its own
};

// A cursor over the registry: the caller says which hive, which key path and which value are meant, then reads or
// writes it. The fields keep what they hold from call to call. No operation throws: a registry failure shows in the
// result, if at all.
class cRegistry {
public:
    explicit cRegistry(Registry& registry) : registry_(registry) {}

    // Caches open keys for a series of reads and writes: while one lives, each key that values are read from or written
    // to stays open. Only success is cached: what was refused is tried again. A key that another program deletes
    // meanwhile is opened or made again.
    class KeptKeys : Fixed {
    public:
        explicit KeptKeys(cRegistry& cursor) : cursor_(cursor) { ++cursor_.runs_; }
        ~KeptKeys() {
            if (--cursor_.runs_ == 0) cursor_.letGo();
        }

    private:
        cRegistry& cursor_;
    };

    std::int32_t ClassKey = 0;   // a predefined hive
    std::string SectionKey;      // the key path below the hive
    std::string ValueKey;        // the value's name; empty names the key's default value
    std::int32_t ValueType = 0;  // how to write; Value() sets it to the type that it found
    Variant Default;             // what Value() gives when it finds nothing

    bool KeyExists();
    // Makes the key at SectionKey with all keys on the way; true if it stands now.
    bool CreateKey();
    // Deletes the key at SectionKey; true if it is gone now. A key that has subkeys stays.
    bool DeleteKey();
    // Deletes the value; true if it was there and is gone now.
    bool DeleteValue();

    // Reads the value: strings as text without their last terminator, expandable ones expanded, numbers of 32 bits
    // as such, everything else as its bytes with one zero byte behind them. Default if there is no such value.
    Variant Value();
    // Writes the value as ValueType says, making the key if need be. Strings with two percent signs that enclose at
    // least one character are stored as expandable. Bytes go without their last two; numbers of type 4 and 5 need an
    // integer. A write that fits no type, or that the registry refuses, is silently ignored.
    void Value(Variant value);

    // Gives the names of all values in the order of the platform, the unnamed one among them. Always true; a key that
    // cannot be opened has none.
    bool EnumerateValues(std::vector<std::string>& sKeyNames, std::int32_t& iKeyCount);

    // Gives the names of all subkeys in the order of the platform. Always true; a key that cannot be opened has none.
    bool EnumerateSections(std::vector<std::string>& sSect, std::int32_t& iSectCount);

    // Registers a file type, in the classes view and in its machine copy. ClassKey is the local machine afterwards.
    void CreateEXEAssociation(const ExeAssociation& type);
    // Adds verbs to a class below ClassKey that exists: triples of verb key, menu text and command line. Any other
    // number of items does nothing.
    void CreateAdditionalEXEAssociations(const std::string& sClassName, const std::vector<std::string>& vItems);

private:
    void SetClassValue(const std::string& text);
    void setClassDefault(const std::string& section, const std::string& text);
    void setVerb(const std::string& section, const std::string& menuText, const std::string& command);
    Variant asRead(ValueData value);
    // What is written for a value; nothing where it does not fit ValueType.
    std::optional<ValueData> asWritten(const Variant& value) const;

    struct Kept {
        std::int32_t hive;
        std::string path;
        std::uint32_t rights;
        RegistryKey key;
    };
    enum class IfMissing { refuse, make };
    // Runs a call on the key at SectionKey.
    template <class Call>
    RegistryStatus onKey(std::uint32_t rights, const Call& call, IfMissing ifMissing = IfMissing::refuse);
    void letGo();

    Registry& registry_;
    int runs_ = 0;  // that keep keys
    std::vector<Kept> kept_;
};

}  // namespace vrix
