#include "product/json/product_json.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "common/utf8.h"
#include "product/json/json_parts.h"
#include "product/json/json_texts.h"

namespace vrix {

namespace {

// ---- What the other members cannot tell ----

// The entry of "other" for a key: its values from the first whose position differs from `told`, the values that the
// other members express. Of these it lists only the names.
Json otherOf(const StoredKey& key, const Values& told) {
    const ValuesByName known = byName(told);
    const auto hasSameName = [](const StoredValue& a, const StoredValue& b) { return a.name == b.name; };
    auto value = std::mismatch(key.values.begin(), key.values.end(), told.begin(), told.end(), hasSameName).first;
    Json other = {{"key", Json::array()}};
    for (const std::string& name : key.path) other["key"].push_back(jsonName(name));
    for (; value != key.values.end(); ++value) {
        const Json name = jsonName(value->name);
        const bool isTold = known.contains(value->name);
        other["values"].push_back(isTold ? name : Json{{"name", name}, {"value", jsonContent(*value)}});
    }
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

KeyPath pathOf(const Json& names, const std::string& place) {
    KeyPath path;
    for (const Json& name : arrayOf(names, place)) {
        path.push_back(readName(name, place));
        if (!isKeyName(path.back())) throw malformed(place, "this is no name of a key");
    }
    return path;
}

// The values of a key in their order: those that are not listed stay in front.
Values reordered(const Values& there, const Json& values, const std::string& place) {
    ValuesByName unlisted = byName(there);
    Values listed;
    for (const Json& value : arrayOf(values, place)) {
        const std::string here = place + '/' + std::to_string(listed.size());
        if (value.contains("name")) {
            expectMembers(value, {"name", "value"}, here);
            std::string name = readName(value["name"], here + "/name");
            listed.push_back(readContent(std::move(name), memberOf(value, "value", here), here + "/value"));
        } else {
            const auto known = unlisted.extract(readName(value, here));
            if (known.empty()) throw malformed(here, "no other member tells this value, or it stands twice");
            listed.push_back(*known.mapped());
        }
    }
    Values all;
    std::copy_if(there.begin(), there.end(), std::back_inserter(all),
                 [&](const StoredValue& value) { return unlisted.contains(value.name); });
    std::move(listed.begin(), listed.end(), std::back_inserter(all));
    return all;
}

void readOthers(const Json& others, Product& product) {
    KeyMaker keys(product);
    std::set<std::string> seen;
    for (const Json& other : arrayOf(others, "/other")) {
        const std::string place = "/other/" + std::to_string(seen.size());
        expectMembers(other, {"key", "values"}, place);
        const KeyPath path = pathOf(memberOf(other, "key", place), place + "/key");
        if (!seen.insert(foldedPath(path)).second) throw malformed(place + "/key", "this key stands twice");
        StoredKey& key = keys.at(path);
        key.path = path;
        if (other.contains("values")) key.values = reordered(key.values, other["values"], place + "/values");
    }
}

// ---- The whole ----

// The Product without "other".
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

// Refuses names that differ at most in case: in a store they are the same.
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

Json jsonOf(const Product& product) {
    Json json = identityOf(product);
    addOptions(json, product);
    addTopics(json, product);
    addSmartFields(json, product);
    Json others = othersOf(product, toldBy(json));
    if (!others.empty()) json["other"] = std::move(others);
    return json;
}

Product productOf(const Json& json) {
    expectMembers(
        json, {"$schema", "name", "key", "tree", "created", "options", "topics", "addedTopics", "smartFields", "other"},
        "");
    Product product = toldBy(json);
    if (json.contains("other")) readOthers(json["other"], product);
    refuseTwins(product);
    product.sortKeys();
    return product;
}

std::string toJson(const Product& product) { return jsonOf(product).dump(2) + '\n'; }

Product fromJson(std::string_view text) { return productOf(parsedJson(text)); }

}  // namespace vrix
