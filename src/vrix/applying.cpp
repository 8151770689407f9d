#include "vrix/changes.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

// Asks the user for confirmation. Throws Refusal if the input is not interactive.
bool isAgreed(Run& run, const std::string& question) {
    if (run.request.yes) return true;
    if (!run.console.isAttended()) {
        throw Refusal(Refusal::Kind::wrongUse, "nobody is there to be asked, so removing takes --yes");
    }
    run.console.writeError(shown(question) + " [y/N] ");
    const std::string answer = run.console.readLine();
    return answer == "y" || answer == "Y" || answer == "yes";
}

}  // namespace

ExitCode apply(Run& run) {
    const Unnamed unnamed = run.request.merge ? Unnamed::kept : Unnamed::removed;
    std::vector<std::pair<std::string, ProductId>> all;  // by their files
    std::vector<Step> steps;
    for (const std::string& pattern : run.request.operands) {
        for (const std::string& file : run.machine.disk().filesOf(pattern)) {
            Product product = productOfFile(run, file);
            for (const auto& [other, id] : all) {
                if (!isSameProduct(id, product.id)) continue;
                throw Refusal(Refusal::Kind::wrongUse, other + " and " + file + " are both for " + labelOf(id));
            }
            all.emplace_back(file, product.id);
            steps.push_back({file + ": " + labelOf(product.id),
                             [unnamed, product = std::move(product)](const ProductStore& store) mutable {
                                 return planApply(store, std::move(product), unnamed);  // a step is planned once
                             }});
        }
    }
    Store store(run, Store::Use::writing);
    perform(run, store, steps);
    return ExitCode::done;
}

ExitCode remove(Run& run) {
    std::vector<Step> steps;
    Lines labels;
    std::size_t unreachable = 0;
    {
        Store store(run, Store::Use::reading);
        for (const std::string& text : run.request.operands) {
            const ProductId id = findProduct(store.products(), text);
            labels.push_back(labelOf(id));
            if (whyNoKey(id).empty()) unreachable += store.products().unreachable(rootPath(id));
            steps.push_back({labels.back(), [id](const ProductStore& products) { return planRemoval(products, id); }});
        }
    }
    if (!run.request.dryRun && !isAgreed(run, "Remove " + joined(labels, ", ") + "?")) {
        run.print("Nothing was removed.");
        return ExitCode::done;
    }
    Store store(run, Store::Use::writing);
    perform(run, store, steps, unreachable);
    return ExitCode::done;
}

}  // namespace vrix::command
