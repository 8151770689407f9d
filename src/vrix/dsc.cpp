#include <algorithm>

#include "common/refusal.h"
#include "product/compare.h"
#include "product/plan.h"
#include "vrix/commands.h"
#include "vrix/products.h"

// A resource of DSC: an instance goes in as one JSON object and comes out as one line.
namespace vrix::command {

namespace {

// What the engine wants of an instance.
struct Wanted {
    ProductId id;
    bool exists = true;
    std::optional<Product> product{};  // nothing where only the identity is given
};

// Takes a member out of the instance.
Json take(Json& instance, const char* name) {
    const Json member = instance.value(name, Json());
    instance.erase(name);
    return member;
}

// With a file, the instance may also have only the identity of the Product, and it must be the same.
Product productOf(Run& run, Json instance, const std::string& file) {
    Product product = productOfFile(run, file);
    Json identity = jsonOf(Product{product.id, {}});
    const bool isMore = std::any_of(instance.items().begin(), instance.items().end(),
                                    [&](const auto& member) { return !identity.contains(member.key()); });
    identity.update(instance);
    const ProductId told = vrix::productOf(identity).id;
    if (!isMore && isSameProduct(told, product.id) && told.name == product.id.name) return product;
    throw malformed("", "it tells another Product than " + file + ", or more than its key");
}

Wanted wantedBy(Run& run, Json instance) {
    if (!instance.is_object()) throw malformed("", "it is no JSON object");
    const Json exists = take(instance, "_exist");
    const Json file = take(instance, "file");
    take(instance, "_inDesiredState");
    if (!exists.is_null() && !exists.is_boolean()) throw malformed("/_exist", "this is no boolean");
    if (!file.is_null() && !file.is_string()) throw malformed("/file", "this is no text");
    Product product = file.is_null() ? vrix::productOf(instance) : productOf(run, instance, file);
    Wanted wanted{product.id, exists.is_null() || exists.get<bool>()};
    const auto identity = instance.count("key") + instance.count("tree") + instance.count("name");
    if (!file.is_null() || instance.size() > identity) wanted.product = std::move(product);
    return wanted;
}

Wanted readWanted(Run& run) {
    const std::string text = run.request.input ? *run.request.input : run.console.readAll();
    try {
        return wantedBy(run, parsedJson(text));
    } catch (const Refusal& refusal) {
        if (refusal.kind() != Refusal::Kind::malformed) throw;
        throw malformed("the instance", refusal.what());
    }
}

// The Product as the store has it; nothing where there is neither a row of the list nor a root.
std::optional<Product> readActual(const ProductStore& store, const ProductId& id) {
    const std::vector<ProductId> all = store.list();
    const auto listed =
        std::find_if(all.begin(), all.end(), [&](const ProductId& one) { return isSameProduct(one, id); });
    if (listed != all.end()) return store.read(*listed);
    return store.hasRoot(id) ? std::optional(store.read(id)) : std::nullopt;
}

Json stateOf(const ProductId& id, const std::optional<Product>& actual) {
    Json state = jsonOf(actual ? *actual : Product{id, {}});
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

// The same for what is wanted; none where nothing is to be done.
Json differences(const Wanted& wanted, const std::optional<Product>& actual) {
    if (wanted.exists != actual.has_value()) return Json::array({"_exist"});
    if (!actual) return Json::array();
    const bool isNamedSo = wanted.id.name.empty() || wanted.id.name == actual->id.name;
    if (isNamedSo && (!wanted.product || vrix::compare(*actual, *wanted.product).empty())) return Json::array();
    if (!wanted.product) return Json::array({"name"});
    return differing(jsonOf(*actual), jsonOf(*wanted.product));
}

Plan planOf(const ProductStore& store, const Wanted& wanted) {
    if (!wanted.exists) return planRemoval(store, wanted.id);
    return wanted.product ? planApply(store, *wanted.product, Unnamed::removed)
                          : planApply(store, Product{wanted.id, {}}, Unnamed::kept);
}

}  // namespace

ExitCode dscGet(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::reading);
    run.printJson(stateOf(wanted.id, readActual(store.products(), wanted.id)));
    return ExitCode::done;
}

ExitCode dscTest(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::reading);
    const auto actual = readActual(store.products(), wanted.id);
    const Json changed = differences(wanted, actual);
    Json state = stateOf(wanted.id, actual);
    state["_inDesiredState"] = changed.empty();
    run.printJson(state);
    run.printJson(changed);
    return ExitCode::done;
}

ExitCode dscSet(Run& run) {
    const Wanted wanted = readWanted(run);
    Store store(run, Store::Use::writing);
    const Json changed = differences(wanted, readActual(store.products(), wanted.id));
    store.change(planOf(store.products(), wanted));
    run.printJson(stateOf(wanted.id, readActual(store.products(), wanted.id)));
    run.printJson(changed);
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
        if (whyNoKey(id).empty()) run.printJson(stateOf(id, store.products().read(id)));
    }
    return ExitCode::done;
}

ExitCode dscSchema(Run& run) {
    Json schema = productSchema();
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
    run.printJson(schema, 2);
    return ExitCode::done;
}

}  // namespace vrix::command
