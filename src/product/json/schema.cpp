#include "product/json/json_texts.h"
#include "product/json/product_json.h"
#include "store/option_table.h"

namespace vrix {

namespace {

Json reference(const char* name) { return {{"$ref", std::string("#/$defs/") + name}}; }

Json listOf(const Json& items) { return {{"type", "array"}, {"items", items}}; }

Json closedObject(const Json& properties, const Json& required) {
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

Json described(Json schema, const char* text) {
    schema["description"] = text;
    return schema;
}

Json optionSchema() {
    Json properties = Json::object();
    for (const OptionRow& option : optionTable()) {
        const bool isFlag = option.kind == OptionKind::flag;
        const char* form = option.kind == OptionKind::position ? "position" : "content";
        properties[option.name] = reference(isFlag ? "switch" : form);
    }
    return {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

Json topicSchema() {
    const Json index = {{"type", {"integer", "null"}}, {"minimum", 0}};
    const Json other = {{"anyOf", {reference("text"), {{"type", "integer"}, {"minimum", 0}}}}};
    const Json dependsOn = {{"type", {"array", "null"}}, {"items", other}};
    return closedObject(
        {{"name", reference("text")},
         {"file", reference("content")},
         {"index", described(index, "The index in the dependencies where it is not the row; null without one.")},
         {"dependsOn", described(dependsOn,
                                 "The names of other Topics, or the number of one that is not there. Null "
                                 "without a dependency row.")}},
        {"name", "file"});
}

Json otherSchema() {
    const Json more = closedObject({{"name", reference("text")}, {"value", reference("content")}}, {"name", "value"});
    const Json value = {{"anyOf", {reference("text"), more}}};
    return closedObject(
        {{"key", described(listOf(reference("text")), "The names of the keys from the Product's root downwards.")},
         {"values", described(listOf(value),
                              "The last values of the key in the store's order: by its name alone each "
                              "that another member tells, and more values.")}},
        Json::array({"key"}));
}

Json definitions() {
    const auto digits = [](const char* group) {
        return Json{{"type", "string"}, {"pattern", "^(" + std::string(group) + ")*$"}};
    };
    const Json units = digits("[0-9a-fA-F]{4}");
    const Json string = {{"type", "string"}};
    const Json type = {{"anyOf", {{{"type", "string"}, {"pattern", "^REG_"}}, {{"type", "integer"}, {"minimum", 0}}}}};
    const Json textType = {{"enum", {"REG_SZ", "REG_EXPAND_SZ", "REG_MULTI_SZ", 1, 2, 7}}};
    const Json asText = described(closedObject({{"type", textType}, {"text", string}}, {"type", "text"}),
                                  "A text without its terminator, which is the last zero character.");
    const Json asUnits = described(closedObject({{"type", textType}, {"utf16", units}}, {"type", "utf16"}),
                                   "A text whole, with whatever ends it, as units of UTF-16.");
    const Json asBytes =
        described(closedObject({{"type", type}, {"bytes", digits("[0-9a-fA-F]{2}")}}, {"type", "bytes"}),
                  "Data of any type but those three.");
    const Json name = closedObject({{"utf16", units}}, Json::array({"utf16"}));
    return {
        {"text", described({{"anyOf", {string, name}}}, "A name, as units of UTF-16 where it holds half a character.")},
        {"content", described({{"anyOf", {string, asText, asUnits, asBytes}}},
                              "The text of a value, or its type with its text or bytes.")},
        {"switch", {{"anyOf", {{{"type", "boolean"}}, reference("content")}}}},
        {"position", {{"anyOf", {{{"type", "integer"}, {"minimum", -1}}, reference("content")}}}},
        {"topic", topicSchema()},
        {"other", otherSchema()}};
}

}  // namespace

Json productSchema() {
    const Json tree = {{"enum", {"toolkit", "installed"}}, {"default", "toolkit"}};
    Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"}, {"title", "Product"}};
    schema.update(
        closedObject({{"$schema", {{"type", "string"}}},
                      {"name", described(reference("text"), "The Product's name in lists.")},
                      {"key", described(reference("text"), "The key under which its settings are stored.")},
                      {"tree", described(tree, "Made by the Toolkit, or come with an installation.")},
                      {"created", described(reference("content"), "The date of creation as the store has it.")},
                      {"options", optionSchema()},
                      {"topics", listOf(reference("topic"))},
                      {"addedTopics", described(listOf(reference("topic")), "Topics added to an installed Product.")},
                      {"smartFields", described(listOf(reference("content")), "SmartFields with their delimiters.")},
                      {"other", described(listOf(reference("other")), "What the other members cannot tell.")}},
                     Json::array({"key"})));
    schema["$defs"] = definitions();
    return schema;
}

}  // namespace vrix
