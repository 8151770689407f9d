#include <algorithm>
#include <nlohmann/json.hpp>

#include "makers/embedded/journal_file.h"
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

// What became of the backup's Products: the labels of those that were changed, removed and added since.
Json changesSince(Run& run, const ProductStore& then, const ProductStore& now) {
    Json changes = {{"changed", Json::array()}, {"removed", Json::array()}, {"added", Json::array()}};
    const std::vector<ProductId> before = then.list();
    const std::vector<ProductId> after = now.list();
    for (const ProductId& id : before) {
        const std::string label = labelOf(run, id);
        const auto same =
            std::find_if(after.begin(), after.end(), [&](const ProductId& one) { return isSameProduct(one, id); });
        if (same == after.end()) {
            changes["removed"].push_back(label);
        } else if (!vrix::compare(then.read(id), now.read(*same)).empty()) {
            changes["changed"].push_back(label);
        }
    }
    for (const ProductId& id : after) {
        if (!isAmong(before, id)) changes["added"].push_back(labelOf(run, id));
    }
    return changes;
}

// A backup in the list; one that cannot be read says why.
Json lineOf(Run& run, Store& store, const std::string& name) {
    const std::string path = store.backups()->pathOf(name);
    Json line = {{"backup", name}, {"file", path}};
    try {
        JournalSnapshot journal(path, Environment(), *run.host.journalDisk());
        line["products"] = ProductStore(journal).list().size();
        line["since"] = changesSince(run, ProductStore(journal), store.products());
    } catch (const JournalError& error) {
        line["error"] = error.what();
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
        throw Failure(ExitCode::notFound, "a journal that you name has no backups of its own: copy the file");
    }
}

}  // namespace

ExitCode backups(Run& run) {
    Store store(run, Store::Use::reading);
    needBackups(store);
    Json lines = Json::array();
    for (const std::string& name : store.backups()->names()) lines.push_back(lineOf(run, store, name));
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
        const std::vector<std::string> names = store.backups()->names();
        if (text == "latest" && !names.empty()) return store.backups()->pathOf(names[0]);
        if (std::find(names.begin(), names.end(), text) != names.end()) return store.backups()->pathOf(text);
    }
    if (run.host.journalDisk()->isFile(text)) return text;
    throw Failure(ExitCode::notFound, "there is no backup " + quoted(text) + " (\"vrix backups\" lists them)");
}

Step bringBack(Run& run, const Product& product) {
    const Unnamed unnamed = run.request.merge ? Unnamed::kept : Unnamed::removed;
    return {labelOf(run, product.id),
            [product, unnamed](const ProductStore& store) { return planApply(store, product, unnamed); }};
}

std::vector<Step> bringBackNamed(Run& run, const ProductStore& backup) {
    std::vector<Step> steps;
    for (std::size_t i = 1; i < run.request.operands.size(); ++i) {
        steps.push_back(bringBack(run, backup.read(findProduct(run, backup, run.request.operands[i]))));
    }
    return steps;
}

// Products that came later go first: one of them may have a name that the backup gives to another.
std::vector<Step> bringBackAll(Run& run, const ProductStore& backup, const ProductStore& now) {
    std::vector<Step> steps;
    const std::vector<ProductId> all = backup.list();
    for (const ProductId& id : now.list()) {
        if (run.request.merge || isAmong(all, id)) continue;
        steps.push_back({labelOf(run, id), [id](const ProductStore& store) { return planRemoval(store, id); }});
    }
    for (const ProductId& id : all) {
        if (whyNoKey(id).empty()) steps.push_back(bringBack(run, backup.read(id)));
    }
    return steps;
}

}  // namespace

ExitCode restore(Run& run) {
    Store store(run, run.request.dryRun ? Store::Use::rehearsing : Store::Use::writing);
    JournalSnapshot journal(backupPath(run, store, run.request.operands.at(0)), Environment(), *run.host.journalDisk());
    const ProductStore backup(journal);
    perform(
        run, store,
        run.request.operands.size() > 1 ? bringBackNamed(run, backup) : bringBackAll(run, backup, store.products()));
    return ExitCode::done;
}

}  // namespace vrix::command
