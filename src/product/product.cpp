#include "product/product.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "common/utf8.h"
#include "store/option_table.h"
#include "store/variant.h"

namespace vrix {

namespace {

constexpr std::size_t longestKeyName = 255;

// The place of a key directly below the root; unknown ones come last.
std::size_t placeOf(const std::string& name) {
    constexpr std::array known{"Topics", "Dependencies", "Options", "SmartFields", "Toolkit"};
    const auto found = std::find_if(known.begin(), known.end(), [&](const char* key) { return sameName(key, name); });
    return static_cast<std::size_t>(found - known.begin());
}

std::uint32_t numberOf(const StoredValue& value) {
    std::array<unsigned char, 4> bytes{};
    if (value.data.size() <= bytes.size()) std::memcpy(bytes.data(), value.data.data(), value.data.size());
    if (value.type == valuetype::dwordBigEndian) std::reverse(bytes.begin(), bytes.end());
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes.at(i);
    return number;
}

}  // namespace

// ---- Keys ----

const StoredKey* Product::find(const KeyPath& path) const {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [&](const StoredKey& key) { return samePath(key.path, path); });
    return found == keys.end() ? nullptr : &*found;
}

const Values& Product::values(const KeyPath& path) const {
    static const Values none;
    const StoredKey* key = find(path);
    return key == nullptr ? none : key->values;
}

StoredKey& Product::at(const KeyPath& path) { return KeyMaker(*this).at(path); }

void Product::sortKeys() {
    std::vector<std::pair<std::size_t, StoredKey>> placed;
    placed.reserve(keys.size());
    for (StoredKey& key : keys) placed.emplace_back(key.path.empty() ? 0 : 1 + placeOf(key.path[0]), std::move(key));
    std::stable_sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : a.second.path < b.second.path;
    });
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = std::move(placed[i].second);
}

std::string foldedPath(const KeyPath& path) { return foldedName(joined(path)); }

std::unordered_map<std::string, const StoredKey*> keysByPath(const Product& product) {
    std::unordered_map<std::string, const StoredKey*> keys;
    for (const StoredKey& key : product.keys) keys.emplace(foldedPath(key.path), &key);
    return keys;
}

KeyMaker::KeyMaker(Product& product) : product_(product) {
    for (std::size_t i = 0; i < product.keys.size(); ++i) places_.emplace(foldedPath(product.keys[i].path), i);
}

StoredKey& KeyMaker::at(const KeyPath& path) {
    KeyPath part;
    for (std::size_t depth = 0;; ++depth) {
        const auto [known, isNew] = places_.emplace(foldedPath(part), product_.keys.size());
        if (isNew) product_.keys.push_back({part, {}});
        if (depth == path.size()) return product_.keys[known->second];
        part.push_back(path[depth]);
    }
}

bool isSameProduct(const ProductId& a, const ProductId& b) {
    return a.tree == b.tree && samePath(partsOf(a.key), partsOf(b.key));
}

const char* treeName(Tree tree) { return tree == Tree::toolkit ? "toolkit" : "installed"; }

bool orderCounts(const KeyPath& path) {
    const auto is = [&](const KeyPath& known) { return samePath(path, known); };
    return is(part::topics) || is(part::addedTopics) || is(part::indexTable) || is(part::smartFields);
}

// ---- Values ----

const StoredValue* findValue(const Values& values, std::string_view name) {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const StoredValue& value) { return sameName(value.name, name); });
    return found == values.end() ? nullptr : &*found;
}

ValuesByName byName(const Values& values) {
    ValuesByName found;
    for (const StoredValue& value : values) found.emplace(value.name, &value);
    return found;
}

std::string hexDigits(std::string_view bytes, std::string_view between) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty()) text += between;
        text += {digits[byte / 16], digits[byte % 16]};
    }
    return text;
}

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::uint32_t> hexNumber(std::string_view text, std::size_t most) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, number, 16);
    if (text.size() > most || at != end || error != std::errc()) return std::nullopt;
    return number;
}

std::string textOf(const StoredValue& value) {
    if (value.type == valuetype::dword || value.type == valuetype::dwordBigEndian) {
        return std::to_string(static_cast<std::int32_t>(numberOf(value)));
    }
    if (!valuetype::isText(value.type) || value.data.empty()) return value.data;
    return value.data.substr(0, value.data.size() - 1);
}

StoredValue textValue(std::string_view name, std::string_view text) {
    std::string data;
    data.reserve(text.size() + 1);
    data.append(text).push_back('\0');
    const std::uint32_t type = isExpandable(data) ? valuetype::expandString : valuetype::string;
    return {std::string(name), type, std::move(data)};
}

bool isPlainText(const StoredValue& value) {
    if (value.data.empty() || value.data.find('\0') != value.data.size() - 1) return false;
    return value.type == (isExpandable(value.data) ? valuetype::expandString : valuetype::string);
}

Values optionsOf(const Product& product) {
    Values options;
    for (const OptionRow& option : optionTable()) {
        const StoredValue* value = findValue(product.values(part::options), option.name);
        if (value != nullptr) options.push_back(*value);
    }
    return options;
}

// ---- Dates ----

std::string_view creationDateName(Tree tree) { return tree == Tree::toolkit ? "Creation Date" : "CreationDate"; }

bool isCreationDate(std::string_view name) {
    return sameName(name, creationDateName(Tree::toolkit)) || sameName(name, creationDateName(Tree::installed));
}

std::string createdOf(const Product& product) {
    const Values& root = product.values(part::root);
    const Tree other = product.id.tree == Tree::toolkit ? Tree::installed : Tree::toolkit;
    for (const Tree tree : {product.id.tree, other}) {
        const StoredValue* date = findValue(root, creationDateName(tree));
        if (date != nullptr && !textOf(*date).empty()) return textOf(*date);
    }
    return {};
}

// ---- Paths ----

KeyPath listPath(Tree tree) { return tree == Tree::toolkit ? KeyPath{"Toolkit", "Products"} : KeyPath{"Products"}; }

KeyPath rootPath(const ProductId& id) {
    return joinedPaths(id.tree == Tree::toolkit ? KeyPath{"Toolkit"} : KeyPath{}, partsOf(id.key));
}

std::string joined(const std::vector<std::string>& texts, std::string_view between) {
    std::string all;
    for (const std::string& text : texts) all.append(all.empty() ? "" : between).append(text);
    return all;
}

KeyPath partsOf(std::string_view text) {
    KeyPath parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('\\', from), text.size());
        if (end > from) parts.emplace_back(text.substr(from, end - from));
        from = end + 1;
    }
    return parts;
}

bool isKeyName(const std::string& name) {
    return utf16Size(name) <= longestKeyName && name.find('\0') == std::string::npos && partsOf(name) == KeyPath{name};
}

bool sameName(std::string_view a, std::string_view b) { return a == b || foldedName(a) == foldedName(b); }

KeyPath joinedPaths(KeyPath path, const KeyPath& more) {
    path.insert(path.end(), more.begin(), more.end());
    return path;
}

KeyPath belowRoot(const KeyPath& path, const KeyPath& root) {
    return {path.begin() + static_cast<std::ptrdiff_t>(root.size()), path.end()};
}

bool isWithin(const KeyPath& path, const KeyPath& above) {
    return path.size() >= above.size() && std::equal(above.begin(), above.end(), path.begin(), sameName);
}

bool samePath(const KeyPath& a, const KeyPath& b) { return a.size() == b.size() && isWithin(a, b); }

std::string whyNoKey(const ProductId& id) {
    const KeyPath parts = partsOf(id.key);
    if (parts.empty()) return "a Product needs a key";
    if (!std::all_of(parts.begin(), parts.end(), isKeyName)) {
        return "the name of a key is longer than 255 characters or holds a zero character";
    }
    const bool isTree = id.tree == Tree::installed && sameName(parts[0], "Toolkit");
    if (isTree || sameName(parts[0], "Products")) return "\"" + parts[0] + "\" is not the key of a Product";
    return {};
}

Refusal malformed(const std::string& place, const std::string& why) {
    return {Refusal::Kind::malformed, place.empty() ? why : place + ": " + why};
}

}  // namespace vrix
