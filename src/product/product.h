#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/refusal.h"
#include "platform/registry.h"

namespace vrix {

// The two places where Products live: those that came with an installation, and those that the Toolkit has made.
enum class Tree { installed, toolkit };

// What a Product is known by. Names and keys are found without regard to case.
struct ProductId {
    Tree tree = Tree::toolkit;
    std::string name;  // as lists show it; empty where the source does not tell
    std::string key;   // the key of its settings; it may hold backslashes
};

// A value as the store has it. Names, and the data of texts, are UTF-8 that keeps unpaired surrogates; a text's data
// include the terminator. The data of other types are bytes.
struct StoredValue {
    std::string name;
    std::uint32_t type = valuetype::string;
    std::string data;
    bool operator==(const StoredValue&) const = default;
};

using Values = std::vector<StoredValue>;

// The names of keys from the Product's root downwards; none for the root itself.
using KeyPath = std::vector<std::string>;

// A key of a Product with its values in the order of the store.
struct StoredKey {
    KeyPath path;
    Values values;
    std::size_t unreachable = 0;  // values that are there, and that no call can read: their names hold a zero character
};

// The keys that a Product is made of. Any other one is kept as it is.
namespace part {
inline const KeyPath root{};
inline const KeyPath options{"Options"};
inline const KeyPath topics{"Topics"};
inline const KeyPath addedTopics{"Toolkit", "Topics"};
inline const KeyPath indexTable{"Dependencies", "IndexTable"};
inline const KeyPath matrix{"Dependencies", "Matrix"};
inline const KeyPath smartFields{"SmartFields"};
}  // namespace part

// A whole Product as one value: everything below its root, unchanged.
//
// A platform lists subkeys as it likes, so their order does not matter: the known ones come first, in the order in
// which a new Product gets them, then the others by name. A key stands before those below it. The order of values is
// that of the store. It matters in the lists of Topics and SmartFields and in the table of indexes, see orderCounts().
struct Product {
    ProductId id;
    std::vector<StoredKey> keys;  // empty where there is no root

    // The key of that path without regard to case, or null.
    const StoredKey* find(const KeyPath& path) const;
    // Its values; none where there is no such key.
    const Values& values(const KeyPath& path) const;
    // The key, made with those above it where it is missing.
    StoredKey& at(const KeyPath& path);
    // Sorts the keys into the order above.
    void sortKeys();
};

// A path as one case-folded text: the key of maps.
std::string foldedPath(const KeyPath& path);
// All keys of the Product by their folded paths.
std::unordered_map<std::string, const StoredKey*> keysByPath(const Product& product);

// Makes keys as Product::at does, with an index, for many keys. Meanwhile nobody else may add or move keys.
class KeyMaker {
public:
    explicit KeyMaker(Product& product);
    StoredKey& at(const KeyPath& path);

private:
    Product& product_;
    std::unordered_map<std::string, std::size_t> places_{};
};

// Whether both are one tree and key.
bool isSameProduct(const ProductId& a, const ProductId& b);
// "toolkit" or "installed".
const char* treeName(Tree tree);

// Whether the order of the values matters there.
bool orderCounts(const KeyPath& path);

// The value of that name, without regard to case, or null.
const StoredValue* findValue(const Values& values, std::string_view name);
// The values by their exact names.
using ValuesByName = std::unordered_map<std::string_view, const StoredValue*>;
ValuesByName byName(const Values& values);

// Bytes as pairs of hexadecimal digits, in uppercase.
std::string hexDigits(std::string_view bytes, std::string_view between = "");
// Whether the text is digits alone, and at least one.
bool isDigits(std::string_view text);
// The number of at most `most` hexadecimal digits; nothing for any other text.
std::optional<std::uint32_t> hexNumber(std::string_view text, std::size_t most);
// What the Toolkit reads, but without expanding environment variables: texts without their terminator, numbers in
// decimal, other values as their bytes.
std::string textOf(const StoredValue& value);
// The value that the Toolkit writes for a text.
StoredValue textValue(std::string_view name, std::string_view text);
// Whether the Toolkit would write the value so, which then is nothing but its text.
bool isPlainText(const StoredValue& value);

// The options that the Product has, in the order in which a new one gets them.
Values optionsOf(const Product& product);

// The name of the value in the root that holds the date of creation in that tree. A merged settings file leaves the
// other tree's name, so a Product may have either or both.
std::string_view creationDateName(Tree tree);
bool isCreationDate(std::string_view name);
// The date that the Product shows: that of its tree's own name, or else of the other; empty if there is none.
std::string createdOf(const Product& product);

// The section of the list of a tree, and the path of a Product's root, each as names from the family key downwards.
KeyPath listPath(Tree tree);
KeyPath rootPath(const ProductId& id);
// Texts joined; by default with backslashes, which prints a path.
std::string joined(const std::vector<std::string>& texts, std::string_view between = "\\");
// A text of the store split at its backslashes. Empty parts are dropped.
KeyPath partsOf(std::string_view text);
// Whether a key can have that name: 1 to 255 UTF-16 code units, none of them zero, and no backslash.
bool isKeyName(const std::string& name);
// Without regard to case.
bool sameName(std::string_view a, std::string_view b);
bool samePath(const KeyPath& a, const KeyPath& b);
// A path with more names behind it, and what a path has behind those of `root`.
KeyPath joinedPaths(KeyPath path, const KeyPath& more);
KeyPath belowRoot(const KeyPath& path, const KeyPath& root);
// Whether `path` is `above` or lies below it. Without regard to case.
bool isWithin(const KeyPath& path, const KeyPath& above);

// Why a Product of that name and key cannot be written: an empty key, or one in the place of a list or of a tree. Empty
// text when it can.
std::string whyNoKey(const ProductId& id);

// What is thrown for a file or a text that is not what it should be. `place` is "line 12" or "/options/AllowNoTOC";
// empty where the whole is meant.
Refusal malformed(const std::string& place, const std::string& why);

}  // namespace vrix
