#include "product/json/product_json.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "common/code_page.h"
#include "product/json/json_parts.h"
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
Json otherOf(const StoredKey& key, const Values& told, const JsonTexts& texts) {
    const auto keyNames = namesOf(told);
    const std::set<std::string> isTold(keyNames.begin(), keyNames.end());
    std::vector<std::string> order;
    Json more = Json::array();
    for (std::size_t at = 0; at < key.values.size(); ++at) {
        const StoredValue& value = key.values[at];
        if (isTold.contains(value.name)) {
            order.push_back(value.name);
        } else {
            more.push_back({{"at", at}, {"name", texts.text(value.name)}, {"value", texts.content(value)}});
        }
    }
    Json other = {{"key", Json::array()}};
    for (const std::string& name : key.path) other["key"].push_back(texts.text(name));
    if (order != keyNames) {
        other["order"] = Json::array();
        for (const std::string& name : order) other["order"].push_back(texts.text(name));
    }
    if (!more.empty()) other["values"] = std::move(more);
    return other;
}

Json othersOf(const Product& product, const Product& told, const JsonTexts& texts) {
    Json others = Json::array();
    for (const StoredKey& key : product.keys) {
        const StoredKey* known = told.find(key.path);
        Json other = otherOf(key, known == nullptr ? Values() : known->values, texts);
        if (known == nullptr || known->path != key.path || other.size() > 1) others.push_back(std::move(other));
    }
    return others;
}

class OtherReader {
public:
    OtherReader(Product& product, const JsonTexts& texts) : product_(product), texts_(texts) {}

    void read(const Json& other, const std::string& place) {
        expectMembers(other, {"key", "order", "values"}, place);
        const KeyPath path = pathOf(memberOf(other, "key", place), place + "/key");
        if (!seen_.insert(lowerCase(joined(path))).second) throw Malformed(place + "/key", "this key stands twice");
        StoredKey& key = product_.at(path);
        key.path = path;
        if (other.contains("order")) putInOrder(key, other["order"], place + "/order");
        if (other.contains("values")) putBetween(key, other["values"], place + "/values");
    }

private:
    KeyPath pathOf(const Json& names, const std::string& place) const {
        KeyPath path;
        for (const Json& name : arrayOf(names, place)) {
            path.push_back(texts_.bytesOf(name, place));
            if (!isKeyName(path.back())) throw Malformed(place, "this is no name of a key");
        }
        return path;
    }

    void putInOrder(StoredKey& key, const Json& order, const std::string& place) const {
        std::unordered_map<std::string, StoredValue*> byName;
        for (StoredValue& value : key.values) byName.emplace(value.name, &value);
        Values sorted;
        for (const Json& name : arrayOf(order, place)) {
            const auto found = byName.find(texts_.bytesOf(name, place));
            if (found == byName.end()) throw Malformed(place, "a name is not there, or stands twice");
            sorted.push_back(std::move(*found->second));
            byName.erase(found);
        }
        if (!byName.empty()) throw Malformed(place, "a name is missing");
        key.values = std::move(sorted);
    }

    void putBetween(StoredKey& key, const Json& values, const std::string& place) const {
        Values all;
        std::set<std::string> names;
        auto told = key.values.begin();
        const auto put = [&](StoredValue value, const std::string& where) {
            if (!names.insert(value.name).second) throw Malformed(where, "this value stands twice");
            all.push_back(std::move(value));
        };
        std::size_t number = 0;
        for (const Json& value : arrayOf(values, place)) {
            const std::string here = place + '/' + std::to_string(number++);
            expectMembers(value, {"at", "name", "value"}, here);
            const std::size_t at = countOf(memberOf(value, "at", here), here + "/at");
            while (all.size() < at && told != key.values.end()) put(std::move(*told++), here);
            if (all.size() != at) throw Malformed(here + "/at", "there is no such place");
            std::string name = texts_.bytesOf(memberOf(value, "name", here), here + "/name");
            put(texts_.valueOf(std::move(name), memberOf(value, "value", here), here + "/value"), here);
        }
        while (told != key.values.end()) put(std::move(*told++), place);
        key.values = std::move(all);
    }

    Product& product_;
    const JsonTexts& texts_;
    std::set<std::string> seen_;
};

// ---- The whole ----

// What all members but "other" tell.
Product toldBy(const Json& json, const JsonTexts& texts) {
    Product product;
    product.id = readIdentity(json, texts);
    product.at(part::root);
    if (json.contains("created")) {
        std::string name(creationDateName(product.id.tree));
        product.at(part::root).values.push_back(texts.valueOf(std::move(name), json["created"], "/created"));
    }
    readTopics(json, texts, product);
    if (json.contains("options")) readOptions(json["options"], texts, product.at(part::options));
    if (json.contains("smartFields")) readSmartFields(json["smartFields"], texts, product.at(part::smartFields));
    return product;
}

// Refuses names that differ in case alone: in a store they are one.
void refuseTwins(const Product& product) {
    for (const StoredKey& key : product.keys) {
        std::set<std::string> names;
        for (const StoredValue& value : key.values) {
            if (names.insert(lowerCase(value.name)).second) continue;
            throw Malformed("", joined(key.path) + ": two names of values differ in case alone");
        }
    }
}

// The parser, which would pass over a member that stands twice.
class Reader final : public nlohmann::detail::json_sax_dom_parser<Json> {
public:
    using json_sax_dom_parser::json_sax_dom_parser;

    bool start_object(std::size_t size) {
        names_.emplace_back();
        return json_sax_dom_parser::start_object(size);
    }
    bool key(std::string& name) {
        if (names_.back().insert(name).second) return json_sax_dom_parser::key(name);
        throw Malformed("", "the member \"" + name + "\" stands twice");
    }
    bool end_object() {
        names_.pop_back();
        return json_sax_dom_parser::end_object();
    }

private:
    std::vector<std::set<std::string>> names_;
};

Json parsed(std::string_view text) {
    try {
        Json json;
        Reader reader(json);
        Json::sax_parse(text, &reader);
        return json;
    } catch (const Json::parse_error& error) {
        const auto before = text.substr(0, std::min(error.byte, text.size()));
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        throw Malformed("line " + std::to_string(line), "this is no JSON");
    }
}

}  // namespace

std::string toJson(const Product& product, const Encoding& encoding, JsonForm form) {
    const JsonTexts texts(encoding);
    Json json = identityOf(product, texts);
    addOptions(json, product, texts);
    addTopics(json, product, texts);
    addSmartFields(json, product, texts);
    Json others = othersOf(product, toldBy(json, texts), texts);
    if (!others.empty()) json["other"] = std::move(others);
    return form == JsonForm::oneLine ? json.dump() : json.dump(2) + '\n';
}

Product fromJson(std::string_view text, const Encoding& encoding) {
    const JsonTexts texts(encoding);
    const Json json = parsed(text);
    expectMembers(
        json, {"$schema", "name", "key", "tree", "created", "options", "topics", "addedTopics", "smartFields", "other"},
        "");
    Product product = toldBy(json, texts);
    if (json.contains("other")) {
        OtherReader reader(product, texts);
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
