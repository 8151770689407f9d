#include <algorithm>
#include <nlohmann/json.hpp>

#include "common/refusal.h"
#include "makers/embedded/journal_registry.h"
#include "product/compare.h"
#include "vrix/changes.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

using Json = nlohmann::ordered_json;

bool isAmong(const std::vector<ProductId>& all, const ProductId& id) {
    return std::any_of(all.begin(), all.end(), [&](const ProductId& one) { return isSameProduct(one, id); });
}

std::vector<Product> readAll(const ProductStore& store) {
    std::vector<Product> all;
    for (const ProductId& id : store.list()) all.push_back(store.read(id));
    return all;
}

// What became of the backup's Products: the labels of those that were changed, removed and added since.
Json changesSince(const ProductStore& then, const std::vector<Product>& now) {
    Json changes = {{"changed", Json::array()}, {"removed", Json::array()}, {"added", Json::array()}};
    const std::vector<ProductId> before = then.list();
    for (const ProductId& id : before) {
        const auto same =
            std::find_if(now.begin(), now.end(), [&](const Product& one) { return isSameProduct(one.id, id); });
        if (same == now.end()) {
            changes["removed"].push_back(labelOf(id));
        } else if (!vrix::compare(then.read(id), *same).empty()) {
            changes["changed"].push_back(labelOf(id));
        }
    }
    for (const Product& product : now) {
        if (!isAmong(before, product.id)) changes["added"].push_back(labelOf(product.id));
    }
    return changes;
}

// A backup in the list; one that cannot be read says why.
Json lineOf(Run& run, const std::string& name, const std::string& path, const std::vector<Product>& now) {
    Json line = {{"backup", name}, {"file", path}};
    try {
        JournalSnapshot journal(path, Environment(), run.machine.disk());
        line["products"] = ProductStore(journal).list().size();
        line["since"] = changesSince(ProductStore(journal), now);
    } catch (const Refusal& refusal) {
        line["error"] = refusal.what();
    }
    return line;
}

void print(Run& run, const Json& line) {
    if (line.contains("error")) {
        run.print(line["backup"].get<std::string>() + "  " + line["error"].get<std::string>());
        return;
    }
    run.print(line["backup"].get<std::string>() + "  " + counted(line["products"].get<std::size_t>(), "Product"));
    for (const auto& [what, labels] : line["since"].items()) {
        for (const Json& label : labels) run.print("  " + what + " since: " + label.get<std::string>());
    }
}

void needBackups(const Store& store) {
    if (store.backups() == nullptr) {
        throw Refusal(Refusal::Kind::notFound, "a journal that you name has no backups of its own: copy the file");
    }
}

}  // namespace

ExitCode backups(Run& run) {
    Store store(run, Store::Use::reading);
    needBackups(store);
    Json lines = Json::array();
    const std::vector<Product> now = readAll(store.products());
    for (const std::string& name : store.backups()->names()) {
        lines.push_back(lineOf(run, name, store.backups()->pathOf(name), now));
    }
    if (run.request.json) {
        run.printJson(lines);
    } else if (lines.empty()) {
        run.print("There are no backups.");
    } else {
        for (const Json& line : lines) print(run, line);
    }
    return ExitCode::done;
}

namespace {

// The file of a backup that the user names.
std::string backupPath(Run& run, const Store& store, const std::string& text) {
    if (store.backups() != nullptr) {
        if (const auto name = store.backups()->find(text)) return store.backups()->pathOf(*name);
    }
    if (run.machine.disk().kindOf(text) == PathKind::file) return text;
    throw Refusal(Refusal::Kind::notFound, "there is no backup " + quoted(text) + " (\"vrix backups\" lists them)");
}

Unnamed unnamed(const Run& run) { return run.request.merge ? Unnamed::kept : Unnamed::removed; }

std::vector<Step> bringBackNamed(Run& run, const ProductStore& backup) {
    std::vector<Step> steps;
    for (std::size_t i = 1; i < run.request.operands.size(); ++i) {
        const Product product = backup.read(findProduct(backup, run.request.operands[i]));
        steps.push_back({labelOf(product.id),
                         [&run, product](const ProductStore& s) { return planApply(s, product, unnamed(run)); }});
    }
    return steps;
}

// Products that came later go first: one of them may have a name that the backup gives to another.
std::vector<Step> bringBackAll(Run& run, const ProductStore& backup, const ProductStore& now) {
    std::vector<Step> steps;
    const std::vector<Product> all = readAll(backup);
    for (const ProductId& id : now.list()) {
        const bool isOld =
            std::any_of(all.begin(), all.end(), [&](const Product& p) { return isSameProduct(p.id, id); });
        if (run.request.merge || isOld) continue;
        steps.push_back({labelOf(id), [id](const ProductStore& store) { return planRemoval(store, id); }});
    }
    steps.push_back({"", [&run, &backup](const ProductStore& s) { return planLists(s, backup, unnamed(run)); }});
    for (const Product& product : all) {
        if (!whyNoKey(product.id).empty()) continue;
        steps.push_back({labelOf(product.id),
                         [&run, product](const ProductStore& s) { return planSettings(s, product, unnamed(run)); }});
    }
    return steps;
}

}  // namespace

ExitCode restore(Run& run) {
    Store store(run, run.request.dryRun ? Store::Use::rehearsing : Store::Use::writing);
    JournalSnapshot journal(backupPath(run, store, run.request.operands.at(0)), Environment(), run.machine.disk());
    const ProductStore backup(journal);
    perform(
        run, store,
        run.request.operands.size() > 1 ? bringBackNamed(run, backup) : bringBackAll(run, backup, store.products()));
    return ExitCode::done;
}

}  // namespace vrix::command
