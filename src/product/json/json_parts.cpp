#include "product/json/json_parts.h"

#include <algorithm>
#include <set>
#include <unordered_map>

#include "product/dependency_names.h"
#include "store/option_table.h"

namespace vrix {

// ---- Identity ----

Json identityOf(const Product& product) {
    const ProductId& id = product.id;
    Json json = Json::object();
    if (!id.name.empty()) json["name"] = jsonName(id.name);
    json["key"] = jsonName(id.key);
    json["tree"] = treeName(id.tree);
    for (const StoredValue& value : product.values(part::root)) {
        if (value.name == creationDateName(id.tree)) json["created"] = jsonContent(value);
    }
    return json;
}

ProductId readIdentity(const Json& json) {
    ProductId id;
    if (json.contains("name")) id.name = readName(json["name"], "/name");
    if (json.contains("name") && id.name.empty()) throw malformed("/name", "a Product needs a name");
    id.key = readName(memberOf(json, "key", ""), "/key");
    const Json tree = json.value("tree", Json("toolkit"));
    if (tree != "toolkit" && tree != "installed") throw malformed("/tree", "this is neither toolkit nor installed");
    id.tree = tree == "toolkit" ? Tree::toolkit : Tree::installed;
    if (const std::string why = whyNoKey(id); !why.empty()) throw malformed("/key", why);
    return id;
}

// ---- Options ----

namespace {

constexpr std::int32_t noRow = -1;

Json optionOf(const StoredValue& value, OptionKind kind) {
    const std::string text = isPlainText(value) ? textOf(value) : "";
    if (kind == OptionKind::flag && (text == "0" || text == "1")) return text == "1";
    if (kind == OptionKind::position && plainNumber(text, noRow)) return *plainNumber(text, noRow);
    return jsonContent(value);
}

StoredValue readOption(const OptionRow& option, const Json& value, const std::string& place) {
    if (option.kind == OptionKind::flag && value.is_boolean()) {
        return textValue(option.name, value.get<bool>() ? "1" : "0");
    }
    if (option.kind == OptionKind::position && value.is_number_integer()) {
        const std::string text = value.dump();
        if (!plainNumber(text, noRow)) throw malformed(place, "a position counts from 0, with -1 for none");
        return textValue(option.name, text);
    }
    if (!value.is_string() && !value.is_object()) throw malformed(place, "this option has another type");
    return readContent(option.name, value, place);
}

}  // namespace

void addOptions(Json& json, const Product& product) {
    const StoredKey* key = product.find(part::options);
    if (key == nullptr) return;
    Json options = Json::object();
    for (const StoredValue& value : key->values) {
        if (const OptionRow* option = findOption(value.name)) {
            options[value.name] = optionOf(value, option->kind);
        }
    }
    json["options"] = std::move(options);
}

void readOptions(const Json& options, StoredKey& key) {
    if (!options.is_object()) throw malformed("/options", "an object should stand here");
    for (const auto& [name, value] : options.items()) {
        const std::string place = "/options/" + name;
        const OptionRow* option = findOption(name);
        if (option == nullptr) throw malformed(place, "there is no such option");
        key.values.push_back(readOption(*option, value, place));
    }
}

// ---- Topics ----

namespace {

// The plain texts of values by their exact names.
std::unordered_map<std::string, std::string> plainTexts(const Values& values) {
    std::unordered_map<std::string, std::string> texts;
    for (const StoredValue& value : values) {
        if (isPlainText(value)) texts.emplace(value.name, textOf(value));
    }
    return texts;
}

class TopicWriter {
public:
    // Where both lists have a Topic of one name, its index is the first one's.
    explicit TopicWriter(const Product& product) : rows_(plainTexts(product.values(part::matrix))) {
        auto indexes = plainTexts(product.values(part::indexTable));
        for (const KeyPath& path : {part::topics, part::addedTopics}) {
            for (const StoredValue& topic : product.values(path)) {
                const auto index = indexes.extract(topic.name);
                const bool isNumber = !index.empty() && plainNumber(index.mapped(), 0);
                indexOf_.push_back(isNumber ? index.mapped() : "");
                if (isNumber) topicAt_.emplace(index.mapped(), topic.name);
            }
        }
    }

    Json write(const Values& topics) {
        Json all = Json::array();
        for (const StoredValue& topic : topics) all.push_back(topicOf(topic));
        return all;
    }

private:
    Json topicOf(const StoredValue& topic) {
        Json json = {{"name", jsonName(topic.name)}, {"file", jsonContent(topic)}};
        const std::string& index = indexOf_.at(row_);
        if (index != std::to_string(row_++)) json["index"] = index.empty() ? Json() : Json(*plainNumber(index, 0));
        if (!index.empty()) json["dependsOn"] = rowOf(index);
        return json;
    }

    // The Topics of a dependency row. Nothing where the row is missing, written already, or no list of numbers.
    Json rowOf(const std::string& index) {
        const auto row = rows_.extract(index);
        if (row.empty()) return nullptr;
        Json names = Json::array();
        for (const std::string& number : numbersOf(row.mapped())) {
            if (!plainNumber(number, 0)) return nullptr;
            const auto topic = topicAt_.find(number);
            names.push_back(topic == topicAt_.end() ? Json(*plainNumber(number, 0)) : jsonName(topic->second));
        }
        return names;
    }

    std::unordered_map<std::string, std::string> rows_;     // by index; those not yet written with a Topic
    std::unordered_map<std::string, std::string> topicAt_;  // by index
    std::vector<std::string> indexOf_;                      // by row; empty where the Topic has none
    std::size_t row_ = 0;
};

class TopicReader {
public:
    explicit TopicReader(Product& product) : product_(product) {}

    void read(const Json& topics, const KeyPath& path, const std::string& place) {
        StoredKey& key = product_.at(path);
        std::set<std::string> names;
        std::size_t number = 0;
        for (const Json& topic : arrayOf(topics, place)) {
            const std::string here = place + '/' + std::to_string(number++);
            expectMembers(topic, {"name", "file", "index", "dependsOn"}, here);
            const std::string name = readName(memberOf(topic, "name", here), here + "/name");
            if (!names.insert(name).second) throw malformed(here, "two Topics have this name");
            key.values.push_back(readContent(name, memberOf(topic, "file", here), here + "/file"));
            readIndex(topic, name, here);
        }
    }

    // Once all Topics are known.
    void writeDependencies() {
        if (indexed_.empty()) return;
        Values& indexTable = product_.at(part::indexTable).values;
        for (const Indexed& topic : indexed_) indexTable.push_back(textValue(topic.name, topic.index));
        for (const Indexed& topic : indexed_) {
            if (topic.dependsOn != nullptr && topic.dependsOn->is_null()) continue;
            if (!told_.insert(topic.index).second) {
                throw malformed(topic.place, "another Topic has this index and dependencies of its own");
            }
            const std::string row = rowOf(topic);
            product_.at(part::matrix).values.push_back(textValue(topic.index, row));
        }
    }

private:
    struct Indexed {
        std::string name;
        std::string index;
        const Json* dependsOn;  // none for no dependencies
        std::string place;
    };

    void readIndex(const Json& topic, const std::string& name, const std::string& place) {
        const std::size_t row = row_++;
        const auto given = topic.find("index");
        if (given != topic.end() && given->is_null()) {
            if (topic.contains("dependsOn")) throw malformed(place + "/dependsOn", "a Topic without index has none");
            return;
        }
        const std::string index = given == topic.end() ? std::to_string(row) : numberOf(*given, place + "/index");
        if (!named_.emplace(name, indexed_.size()).second) {
            throw malformed(place, "another Topic of this name has an index");
        }
        const auto dependsOn = topic.find("dependsOn");
        indexed_.push_back({name, index, dependsOn == topic.end() ? nullptr : &*dependsOn, place});
    }

    std::string rowOf(const Indexed& topic) const {
        std::string row;
        if (topic.dependsOn == nullptr) return row;
        const std::string place = topic.place + "/dependsOn";
        for (const Json& other : arrayOf(*topic.dependsOn, place)) {
            row += (row.empty() ? "" : " ") + (other.is_number() ? numberOf(other, place) : indexOf(other, place));
        }
        return row;
    }
    static std::string numberOf(const Json& number, const std::string& place) {
        if (!number.is_number_integer() || number < 0)
            throw malformed(place, "a whole number from 0 should stand here");
        if (number > INT32_MAX) throw malformed(place, "this number is too large");
        return number.dump();
    }
    std::string indexOf(const Json& topic, const std::string& place) const {
        const std::string name = readName(topic, place);
        const auto found = named_.find(name);
        if (found == named_.end()) throw malformed(place, "there is no Topic \"" + topic.dump() + "\" with an index");
        return indexed_[found->second].index;
    }

    Product& product_;
    std::vector<Indexed> indexed_;
    std::unordered_map<std::string, std::size_t> named_;  // places in `indexed_`
    std::set<std::string> told_;
    std::size_t row_ = 0;
};

}  // namespace

void addTopics(Json& json, const Product& product) {
    TopicWriter writer(product);
    if (const StoredKey* key = product.find(part::topics)) json["topics"] = writer.write(key->values);
    if (const StoredKey* key = product.find(part::addedTopics)) json["addedTopics"] = writer.write(key->values);
}

void readTopics(const Json& json, Product& product) {
    TopicReader reader(product);
    if (json.contains("topics")) reader.read(json["topics"], part::topics, "/topics");
    if (json.contains("addedTopics")) reader.read(json["addedTopics"], part::addedTopics, "/addedTopics");
    reader.writeDependencies();
}

// ---- SmartFields ----

namespace {

std::string fieldName(std::size_t row) { return "SmartField" + std::to_string(row + 1); }

}  // namespace

void addSmartFields(Json& json, const Product& product) {
    const StoredKey* key = product.find(part::smartFields);
    if (key == nullptr) return;
    const ValuesByName known = byName(key->values);
    Json fields = Json::array();
    for (auto field = known.find(fieldName(0)); field != known.end(); field = known.find(fieldName(fields.size()))) {
        fields.push_back(jsonContent(*field->second));
    }
    json["smartFields"] = std::move(fields);
}

void readSmartFields(const Json& fields, StoredKey& key) {
    for (const Json& field : arrayOf(fields, "/smartFields")) {
        const std::size_t row = key.values.size();
        key.values.push_back(readContent(fieldName(row), field, "/smartFields/" + std::to_string(row)));
    }
}

}  // namespace vrix
