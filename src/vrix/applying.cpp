#include "vrix/changes.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

Store::Use use(const Run& run) { return run.request.dryRun ? Store::Use::rehearsing : Store::Use::writing; }

// Whether the user agrees. Nobody is asked where nobody can answer.
bool isAgreed(Run& run, const std::string& question) {
    if (run.request.yes) return true;
    if (!run.console.isAttended()) {
        throw Refusal(Refusal::Kind::wrongUse, "nobody is there to be asked, so removing takes --yes");
    }
    run.console.writeError(question + " [y/N] ");
    const std::string answer = run.console.readLine();
    return answer == "y" || answer == "Y" || answer == "yes";
}

struct FileProduct {
    std::string file;
    Product product;
};

std::vector<FileProduct> readFiles(Run& run) {
    std::vector<FileProduct> all;
    for (const std::string& pattern : run.request.operands) {
        for (const std::string& file : run.machine.disk().filesOf(pattern)) {
            Product product = productOfFile(run, file);
            for (const auto& [other, its] : all) {
                if (!isSameProduct(its.id, product.id)) continue;
                throw Refusal(Refusal::Kind::wrongUse, other + " and " + file + " are both for " + labelOf(its.id));
            }
            all.push_back({file, std::move(product)});
        }
    }
    return all;
}

}  // namespace

ExitCode apply(Run& run) {
    std::vector<FileProduct> all = readFiles(run);
    const Unnamed unnamed = run.request.merge ? Unnamed::kept : Unnamed::removed;
    std::vector<Step> steps;
    for (FileProduct& one : all) {  // a step is planned once
        steps.push_back({one.file + ": " + labelOf(one.product.id),
                         [&](const ProductStore& store) { return planApply(store, std::move(one.product), unnamed); }});
    }
    Store store(run, use(run));
    perform(run, store, steps);
    return ExitCode::done;
}

ExitCode remove(Run& run) {
    std::vector<Step> steps;
    std::string labels;
    {
        Store store(run, Store::Use::reading);
        for (const std::string& text : run.request.operands) {
            const ProductId id = findProduct(store.products(), text);
            const std::string label = labelOf(id);
            labels += (labels.empty() ? "" : ", ") + label;
            steps.push_back({label, [id](const ProductStore& products) { return planRemoval(products, id); }});
        }
    }
    if (!run.request.dryRun && !isAgreed(run, "Remove " + labels + "?")) {
        run.print("Nothing was removed.");
        return ExitCode::done;
    }
    Store store(run, use(run));
    perform(run, store, steps);
    return ExitCode::done;
}

}  // namespace vrix::command
