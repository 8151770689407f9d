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

// Dumps all below a key as "name:type=data;" and "name{...};". A listing has to give what a read gives, except for
// names that the code page cannot encode.
std::string listing(Registry& registry, RegistryKey top, bool sorted = false);

enum class Do { open, make, remove, erase, query, set, names, values, tree, expand, close, plant };

// One call, and its answer: the status as a number and what came out. A plant makes a key and a value by UTF-8.
struct Call {
    Do what;
    std::string text = {};
    std::string answer = "0";
    unsigned key = 0;  // the place of the handle: 0 for the caller's own key, 8 and 9 for the hives, 7 for no handle
    unsigned number = 63;   // rights or type
    unsigned to = 5;        // the place for the opened handle
    std::string data = {};  // of a value to set
};

// Makes calls on a registry and holds the handles. Place 6 keeps closed handles.
struct Caller {
    explicit Caller(Registry& called, std::string ownKey = "Vrix.T", Registry* inUtf8 = nullptr);
    ~Caller();
    std::string answer(const Call& call);

    Registry& registry;
    std::string root;    // the path of the own key
    Registry* utf8;      // the same store, for plants
    bool sorts = false;  // answers listings sorted
    std::vector<RegistryKey> keys{0, 0, 0, 0, 0, 0, 0, 0, hive::localMachine, hive::classesRoot};
};

extern const std::map<std::string, std::string> testEnvironment;  // by names in lowercase
Environment environmentLookup();

// The suite for every registry of bytes of the code page 1252, each part on a fresh one. The real one, under Wine, may
// differ: it lists values and subkeys sorted by name; it takes names of keys of 256 characters, one above the limit,
// any number of levels, and keys directly in the machine's hive.
void expectConforms(const std::function<std::unique_ptr<Registry>()>& fresh, bool isReal = false);
// The same for every registry of UTF-8.
void expectKeepsCharacters(const std::function<std::unique_ptr<Registry>()>& fresh);
// The same random calls on both, with names and texts of that code page and of others; every answer and the whole trees
// compared.
void expectSameAnswers(unsigned seed, int calls, unsigned codePage, Caller& first, Caller& second);

}  // namespace vrix
