#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files.h"
#include "makers/embedded/journal_registry.h"

namespace vrix {

// A journal on a disk whose files are free, or held by another program.
std::unique_ptr<JournalRegistry> openedJournal(const std::string& path, bool isFree = true);

// All below a key as "name:type=data;" and "name{...};". What a listing gives has to be what a read gives.
std::string listing(Registry& registry, RegistryKey top, bool sorted = false);

enum class Do { open, make, remove, erase, query, set, setNull, names, values, longest, tree, expand, close };

// One call, and its answer: the status as a number and what came out.
struct Call {
    Do what;
    std::string text = {};
    std::string answer = "0";
    unsigned key = 0;       // the place of the handle: 0 for the key Vrix.T, 8 and 9 for the hives, 7 for no handle
    unsigned number = 63;   // rights, type, index, or room or size of data
    unsigned to = 5;        // the place for the opened handle, or the room for a name
    std::string data = {};  // of a value to set
};

// Takes calls for a registry and holds the handles. Place 6 keeps what was closed.
struct Caller {
    explicit Caller(Registry& called, bool listsSorted = false);
    ~Caller();
    std::string answer(const Call& call);

    Registry& registry;
    bool sorted;
    std::vector<RegistryKey> keys{0, 0, 0, 0, 0, 0, 0, 0, hive::localMachine, hive::classesRoot};
};

extern const std::map<std::string, std::string> testEnvironment;  // by names in small letters
Environment environmentLookup();

// The suite for every registry, each part on a fresh one. The real one, under Wine, may differ: it lists values and
// subkeys sorted by name; it takes names of keys of 256 characters, one above the limit, any number of levels, and keys
// directly in the machine's hive; and it tells the longest value name on a handle without the right to read values.
void expectConforms(const std::function<std::unique_ptr<Registry>()>& fresh, bool isReal = false);
// The same random calls on both, every answer and the whole trees compared. The right one may be the real one.
void expectSameAnswers(unsigned seed, int calls, Registry& left, Registry& right, bool isReal = false);
// What is kept open over the registry is not seen, whatever another program deletes between the calls.
void expectKeepsKeysUnseen(Registry& registry);
// The same random settings through kept keys and without, with another program between the calls, over one registry.
void expectSameSettings(unsigned seed, int calls, Registry& registry);

}  // namespace vrix
