#include <algorithm>

#include "common/refusal.h"
#include "makers/embedded/journal_registry.h"
#include "product/compare.h"
#include "vrix/changes.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

std::vector<Product> readAll(const ProductStore& store) {
    std::vector<Product> all;
    for (const ProductId& id : store.list()) all.push_back(store.read(id));
    return all;
}

const Product* findIn(const std::vector<Product>& all, const ProductId& id) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Product& one) { return isSameProduct(one.id, id); });
    return found == all.end() ? nullptr : &*found;
}

// What became of the backup's Products: the labels of those that were changed, removed and added since.
Json changesSince(const std::vector<Product>& then, const std::vector<Product>& now) {
    Json changes = {{"changed", Json::array()}, {"removed", Json::array()}, {"added", Json::array()}};
    for (const Product& product : then) {
        const Product* same = findIn(now, product.id);
        if (same == nullptr) {
            changes["removed"].push_back(labelOf(product.id));
        } else if (!vrix::compare(product, *same).empty()) {
            changes["changed"].push_back(labelOf(product.id));
        }
    }
    for (const Product& product : now) {
        if (findIn(then, product.id) == nullptr) changes["added"].push_back(labelOf(product.id));
    }
    return changes;
}

// A backup in the list; one that cannot be read says why.
Json lineOf(Run& run, const std::string& name, const std::string& path, const std::vector<Product>& now) {
    Json line = {{"backup", name}, {"file", path}};
    try {
        JournalSnapshot journal(path, Environment(), run.machine.disk());
        const std::vector<Product> then = readAll(ProductStore(journal));
        line["products"] = then.size();
        line["since"] = changesSince(then, now);
    } catch (const Refusal& refusal) {
        line["error"] = refusal.what();
    }
    return line;
}

Lines linesOf(const Json& backup) {
    const std::string name = backup["backup"].get<std::string>() + "  ";
    if (backup.contains("error")) return {name + backup["error"].get<std::string>()};
    Lines lines{name + counted(backup["products"], "Product")};
    for (const auto& [what, labels] : backup["since"].items()) {
        for (const std::string label : labels) lines.push_back("  " + what + " since: " + label);
    }
    return lines;
}

}  // namespace

ExitCode backups(Run& run) {
    Store store(run, Store::Use::reading);
    const BackupFolder* folder = store.backups();
    if (folder == nullptr) {
        throw Refusal(Refusal::Kind::notFound, "a journal that you name has no backups of its own: copy the file");
    }
    const std::vector<Product> now = readAll(store.products());
    const std::size_t unreachable = store.products().unreachable({});
    Json all = Json::array();
    Lines lines;
    for (const std::string& name : folder->names()) {
        all.push_back(lineOf(run, name, folder->pathOf(name), now));
        if (unreachable > 0) all.back()["unreachable"] = unreachable;
        for (std::string& line : linesOf(all.back())) lines.push_back(std::move(line));
    }
    if (all.empty()) lines.push_back("There are no backups.");
    if (unreachable > 0) {
        lines.push_back("No backup holds what no call can reach: " + counted(unreachable, "value") + " of the store.");
    }
    run.answer(all, lines);
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

// Products newer than the backup are removed first: one of them may have a name that the backup gives to another.
std::vector<Step> bringBackAll(Run& run, const ProductStore& backup, const ProductStore& now) {
    std::vector<Step> steps;
    const std::vector<Product> all = readAll(backup);
    for (const ProductId& id : now.list()) {
        if (run.request.merge || findIn(all, id) != nullptr) continue;
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
    Store store(run, Store::Use::writing);
    JournalSnapshot journal(backupPath(run, store, run.request.operands.at(0)), Environment(), run.machine.disk());
    const ProductStore backup(journal);
    perform(
        run, store,
        run.request.operands.size() > 1 ? bringBackNamed(run, backup) : bringBackAll(run, backup, store.products()));
    return ExitCode::done;
}

}  // namespace vrix::command
