#include <algorithm>
#include <nlohmann/json.hpp>

#include "common/refusal.h"
#include "makers/embedded/embedded_registry.h"
#include "product/compare.h"
#include "product/json/product_json.h"
#include "product/plan.h"
#include "vrix/changes.h"
#include "vrix/commands.h"
#include "vrix/products.h"

// A resource of DSC: an instance goes in as one JSON object and comes out as one line.
namespace vrix::command {

namespace {

using Json = nlohmann::ordered_json;

// What the engine wants of an instance.
struct Wanted {
    ProductId id;
    bool exists = true;
    std::optional<Product> product{};  // nothing where only the identity is told
};

Json parsed(Run& run) {
    const std::string text = run.request.input ? *run.request.input : run.console.readAll();
    Json json = Json::parse(text, nullptr, false);
    if (json.is_object()) return json;
    throw Refusal(Refusal::Kind::malformed, "the instance is no JSON object");
}

// Takes a member out of the instance.
Json take(Json& instance, const char* name) {
    const Json member = instance.value(name, Json());
    instance.erase(name);
    return member;
}

Product productOf(const Json& instance) {
    try {
        return fromJson(jsonText(instance));
    } catch (const Refusal& refusal) {
        throw Refusal(refusal.kind(), std::string("the instance: ") + refusal.what());
    }
}

// Beside a file stands at most what identifies the Product, and it must say the same.
Product productOf(Run& run, Json instance, const std::string& file) {
    Product product = productOfFile(run, file);
    if (!instance.contains("key")) instance["key"] = shown(product.id.key);
    if (!instance.contains("tree")) instance["tree"] = treeName(product.id.tree);
    const ProductId told = productOf(instance).id;
    const bool isSame = isSameProduct(told, product.id) && (told.name.empty() || told.name == product.id.name);
    if (isSame && instance.size() == 2 + instance.count("name")) return product;
    throw Refusal(Refusal::Kind::malformed,
                  "the instance tells another Product than " + file + ", or more than its key");
}

Wanted readWanted(Run& run) {
    Json instance = parsed(run);
    const Json exists = take(instance, "_exist");
    const Json file = take(instance, "file");
    take(instance, "_inDesiredState");
    if (!exists.is_null() && !exists.is_boolean()) throw Refusal(Refusal::Kind::malformed, "_exist is no boolean");
    if (!file.is_null() && !file.is_string()) throw Refusal(Refusal::Kind::malformed, "file is no text");
    Product product = file.is_null() ? productOf(instance) : productOf(run, instance, file);
    Wanted wanted{product.id, exists.is_null() || exists.get<bool>()};
    const auto identity = instance.count("key") + instance.count("tree") + instance.count("name");
    if (!file.is_null() || instance.size() > identity) wanted.product = std::move(product);
    return wanted;
}

// The Product as the store has it; nothing where there is neither a row of the list nor a root.
std::optional<Product> readActual(const ProductStore& store, ProductId id) {
    bool isListed = false;
    for (const ProductId& listed : store.list()) {
        if (!isSameProduct(listed, id)) continue;
        isListed = true;
        id = listed;
        break;
    }
    return isListed || store.hasRoot(id) ? std::optional(store.read(id)) : std::nullopt;
}

Json stateOf(const ProductId& id, const std::optional<Product>& actual) {
    Json state = Json::parse(toJson(actual ? *actual : Product{id, {}}, JsonForm::oneLine));
    if (!actual) {
        Json identity = Json::object();
        for (const char* name : {"name", "key", "tree"}) {
            if (state.contains(name)) identity[name] = state[name];
        }
        state = std::move(identity);
    }
    state["_exist"] = actual.has_value();
    return state;
}

// The names of the properties in which the two differ.
Json differing(const Json& actual, const Json& wanted) {
    Json names = Json::array();
    for (const Json& both : {actual, wanted}) {
        for (const auto& member : both.items()) {
            const std::string& name = member.key();
            const bool isKnown = std::find(names.begin(), names.end(), name) != names.end();
            if (name == "created" || name == "_inDesiredState" || isKnown) continue;
            if (actual.value(name, Json()) != wanted.value(name, Json())) names.push_back(name);
        }
    }
    return names;
}

bool isInDesiredState(const Wanted& wanted, const std::optional<Product>& actual) {
    if (wanted.exists != actual.has_value()) return false;
    if (!actual) return true;
    const bool isNamedSo = wanted.id.name.empty() || wanted.id.name == actual->id.name;
    return isNamedSo && (!wanted.product || vrix::compare(*actual, *wanted.product).empty());
}

Json differences(const Wanted& wanted, const std::optional<Product>& actual) {
    if (isInDesiredState(wanted, actual)) return Json::array();
    if (wanted.exists != actual.has_value()) return Json::array({"_exist"});
    if (!wanted.product) return Json::array({"name"});
    return differing(stateOf(wanted.id, actual), stateOf(wanted.id, wanted.product));
}

Plan planOf(const ProductStore& store, const Wanted& wanted) {
    if (!wanted.exists) return planRemoval(store, wanted.id);
    return wanted.product ? planApply(store, *wanted.product, Unnamed::removed)
                          : planApply(store, Product{wanted.id, {}}, Unnamed::kept);
}

void printLine(Run& run, const Json& json) { run.print(jsonText(json)); }

}  // namespace

ExitCode dscGet(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::reading);
    printLine(run, stateOf(wanted.id, readActual(store.products(), wanted.id)));
    return ExitCode::done;
}

ExitCode dscTest(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::reading);
    const auto actual = readActual(store.products(), wanted.id);
    Json state = stateOf(wanted.id, actual);
    state["_inDesiredState"] = isInDesiredState(wanted, actual);
    printLine(run, state);
    printLine(run, differences(wanted, actual));
    return ExitCode::done;
}

ExitCode dscSet(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, run.request.dryRun ? Store::Use::rehearsing : Store::Use::writing);
    const Json changed = differences(wanted, readActual(store.products(), wanted.id));
    const Plan plan = planOf(store.products(), wanted);
    EmbeddedRegistry rehearsal;
    if (run.request.dryRun) {
        copyStore(store.products(), rehearsal);
        perform(rehearsal, plan);
    } else {
        store.change(plan);
    }
    const ProductStore after(run.request.dryRun ? rehearsal : store.registry());
    printLine(run, stateOf(wanted.id, readActual(after, wanted.id)));
    printLine(run, changed);
    return ExitCode::done;
}

ExitCode dscDelete(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::writing);
    store.change(planRemoval(store.products(), wanted.id));
    return ExitCode::done;
}

ExitCode dscExport(Run& run) {
    Store store(run, Store::Use::reading);
    for (const ProductId& id : store.products().list()) {
        if (whyNoKey(id).empty()) printLine(run, stateOf(id, store.products().read(id)));
    }
    return ExitCode::done;
}

ExitCode dscSchema(Run& run) {
    Json schema = Json::parse(productSchema());
    Json& properties = schema["properties"];
    properties["file"] = {{"type", "string"},
                          {"description",
                           "A settings file or JSON file with the Product. Only name, key and tree may "
                           "stand beside it."}};
    properties["_exist"] = {{"type", "boolean"}, {"default", true}};
    properties["_inDesiredState"] = {{"type", {"boolean", "null"}}, {"default", nullptr}, {"readOnly", true}};
    schema["title"] = "Vrix/Product";
    schema["anyOf"] = {{{"required", {"key"}}}, {{"required", {"file"}}}};
    schema.erase("required");
    run.printJson(schema);
    return ExitCode::done;
}

}  // namespace vrix::command
