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

// ---- What the other members cannot tell ----

// What is told of a key that the other members tell as `told`: the order of those values, and more values.
Json otherOf(const StoredKey& key, const Values& told) {
    const ValuesByName known = byName(told);
    Json path = Json::array();
    Json names = Json::array();
    Json order = Json::array();
    Json more = Json::array();
    for (const std::string& name : key.path) path.push_back(jsonName(name));
    for (const StoredValue& value : told) names.push_back(jsonName(value.name));
    for (const StoredValue& value : key.values) {
        if (known.contains(value.name)) {
            order.push_back(jsonName(value.name));
        } else {
            const std::size_t at = order.size() + more.size();
            more.push_back({{"at", at}, {"name", jsonName(value.name)}, {"value", jsonContent(value)}});
        }
    }
    Json other = {{"key", std::move(path)}};
    if (order != names) other["order"] = std::move(order);
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
    static KeyPath pathOf(const Json& names, const std::string& place) {
        KeyPath path;
        for (const Json& name : arrayOf(names, place)) {
            path.push_back(readName(name, place));
            if (!isKeyName(path.back())) throw malformed(place, "this is no name of a key");
        }
        return path;
    }

    static void putInOrder(StoredKey& key, const Json& order, const std::string& place) {
        ValuesByName told = byName(key.values);
        Values sorted;
        for (const Json& name : arrayOf(order, place)) {
            const auto found = told.find(readName(name, place));
            if (found == told.end()) throw malformed(place, "a name is not there, or stands twice");
            sorted.push_back(*found->second);
            told.erase(found);
        }
        if (!told.empty()) throw malformed(place, "a name is missing");
        key.values = std::move(sorted);
    }

    static void putBetween(StoredKey& key, const Json& values, const std::string& place) {
        std::size_t number = 0;
        Values all;
        auto told = key.values.begin();
        for (const Json& value : arrayOf(values, place)) {
            const std::string here = place + '/' + std::to_string(number++);
            expectMembers(value, {"at", "name", "value"}, here);
            const std::size_t at = countOf(memberOf(value, "at", here), here + "/at");
            while (all.size() < at && told != key.values.end()) all.push_back(std::move(*told++));
            if (all.size() != at) throw malformed(here + "/at", "there is no such place");
            std::string name = readName(memberOf(value, "name", here), here + "/name");
            all.push_back(readContent(std::move(name), memberOf(value, "value", here), here + "/value"));
        }
        std::move(told, key.values.end(), std::back_inserter(all));
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

// Refuses names that are the same, or differ in case alone: in a store they are one.
void refuseTwins(const Product& product) {
    for (const StoredKey& key : product.keys) {
        std::set<std::string> names;
        for (const StoredValue& value : key.values) {
            if (names.insert(foldedName(value.name)).second) continue;
            throw malformed("", joined(key.path) + ": a name stands twice, or in another case");
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
