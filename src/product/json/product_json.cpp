#include "product/json/product_json.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "common/utf8.h"
#include "product/json/json_parts.h"
#include "product/json/json_reader.h"
#include "product/json/json_texts.h"

namespace vrix {

namespace {

using Values = std::vector<StoredValue>;

// ---- What the other members cannot tell ----

std::vector<std::string> namesOf(const Values& values) {
    std::vector<std::string> names;
    for (const StoredValue& value : values) names.push_back(value.name);
    return names;
}

// What is told of a key that the other members tell as `told`: the order of those values, and more values.
Json otherOf(const StoredKey& key, const Values& told) {
    const auto keyNames = namesOf(told);
    const std::set<std::string> isTold(keyNames.begin(), keyNames.end());
    std::vector<std::string> order;
    Json more = Json::array();
    for (std::size_t at = 0; at < key.values.size(); ++at) {
        const StoredValue& value = key.values[at];
        if (isTold.contains(value.name)) {
            order.push_back(value.name);
        } else {
            more.push_back({{"at", at}, {"name", jsonName(value.name)}, {"value", jsonContent(value)}});
        }
    }
    Json other = {{"key", Json::array()}};
    for (const std::string& name : key.path) other["key"].push_back(jsonName(name));
    if (order != keyNames) {
        other["order"] = Json::array();
        for (const std::string& name : order) other["order"].push_back(jsonName(name));
    }
    if (!more.empty()) other["values"] = std::move(more);
    return other;
}

Json othersOf(const Product& product, const Product& told) {
    Json others = Json::array();
    for (const StoredKey& key : product.keys) {
        const StoredKey* known = told.find(key.path);
        Json other = otherOf(key, known == nullptr ? Values() : known->values);
        if (known == nullptr || known->path != key.path || other.size() > 1) others.push_back(std::move(other));
    }
    return others;
}

class OtherReader {
public:
    explicit OtherReader(Product& product) : keys_(product) {}

    void read(const Json& other, const std::string& place) {
        expectMembers(other, {"key", "order", "values"}, place);
        const KeyPath path = pathOf(memberOf(other, "key", place), place + "/key");
        if (!seen_.insert(foldedPath(path)).second) throw malformed(place + "/key", "this key stands twice");
        StoredKey& key = keys_.at(path);
        key.path = path;
        if (other.contains("order")) putInOrder(key, other["order"], place + "/order");
        if (other.contains("values")) putBetween(key, other["values"], place + "/values");
    }

private:
    KeyPath pathOf(const Json& names, const std::string& place) const {
        KeyPath path;
        for (const Json& name : arrayOf(names, place)) {
            path.push_back(readName(name, place));
            if (!isKeyName(path.back())) throw malformed(place, "this is no name of a key");
        }
        return path;
    }

    void putInOrder(StoredKey& key, const Json& order, const std::string& place) const {
        std::unordered_map<std::string, StoredValue*> byName;
        for (StoredValue& value : key.values) byName.emplace(value.name, &value);
        Values sorted;
        for (const Json& name : arrayOf(order, place)) {
            const auto found = byName.find(readName(name, place));
            if (found == byName.end()) throw malformed(place, "a name is not there, or stands twice");
            sorted.push_back(std::move(*found->second));
            byName.erase(found);
        }
        if (!byName.empty()) throw malformed(place, "a name is missing");
        key.values = std::move(sorted);
    }

    void putBetween(StoredKey& key, const Json& values, const std::string& place) const {
        Values all;
        std::set<std::string> names;
        auto told = key.values.begin();
        const auto put = [&](StoredValue value, const std::string& where) {
            if (!names.insert(value.name).second) throw malformed(where, "this value stands twice");
            all.push_back(std::move(value));
        };
        std::size_t number = 0;
        for (const Json& value : arrayOf(values, place)) {
            const std::string here = place + '/' + std::to_string(number++);
            expectMembers(value, {"at", "name", "value"}, here);
            const std::size_t at = countOf(memberOf(value, "at", here), here + "/at");
            while (all.size() < at && told != key.values.end()) put(std::move(*told++), here);
            if (all.size() != at) throw malformed(here + "/at", "there is no such place");
            std::string name = readName(memberOf(value, "name", here), here + "/name");
            put(readContent(std::move(name), memberOf(value, "value", here), here + "/value"), here);
        }
        while (told != key.values.end()) put(std::move(*told++), place);
        key.values = std::move(all);
    }

    KeyMaker keys_;
    std::set<std::string> seen_;
};

// ---- The whole ----

// What all members but "other" tell.
Product toldBy(const Json& json) {
    Product product;
    product.id = readIdentity(json);
    product.at(part::root);
    if (json.contains("created")) {
        std::string name(creationDateName(product.id.tree));
        product.at(part::root).values.push_back(readContent(std::move(name), json["created"], "/created"));
    }
    readTopics(json, product);
    if (json.contains("options")) readOptions(json["options"], product.at(part::options));
    if (json.contains("smartFields")) readSmartFields(json["smartFields"], product.at(part::smartFields));
    return product;
}

// Refuses names that differ in case alone: in a store they are one.
void refuseTwins(const Product& product) {
    for (const StoredKey& key : product.keys) {
        std::set<std::string> names;
        for (const StoredValue& value : key.values) {
            if (names.insert(foldedName(value.name)).second) continue;
            throw malformed("", joined(key.path) + ": two names of values differ in case alone");
        }
    }
}

}  // namespace

std::string toJson(const Product& product, JsonForm form) {
    Json json = identityOf(product);
    addOptions(json, product);
    addTopics(json, product);
    addSmartFields(json, product);
    Json others = othersOf(product, toldBy(json));
    if (!others.empty()) json["other"] = std::move(others);
    return form == JsonForm::oneLine ? json.dump() : json.dump(2) + '\n';
}

Product fromJson(std::string_view text) {
    const Json json = parsedJson(text);
    expectMembers(
        json, {"$schema", "name", "key", "tree", "created", "options", "topics", "addedTopics", "smartFields", "other"},
        "");
    Product product = toldBy(json);
    if (json.contains("other")) {
        OtherReader reader(product);
        std::size_t number = 0;
        for (const Json& other : arrayOf(json["other"], "/other")) {
            reader.read(other, "/other/" + std::to_string(number++));
        }
    }
    refuseTwins(product);
    product.sortKeys();
    return product;
}

}  // namespace vrix
