#include "vrix/changes.h"

#include <algorithm>

#include "product/compare.h"

namespace vrix {

namespace {

using Kind = StoreChange::Kind;

const char* verbOf(const StoreChange& change) {
    switch (change.kind) {
        case Kind::makeKey: return "make";
        case Kind::setValue: return change.before ? "set" : "add";
        case Kind::removeValue:
        case Kind::removeKey: break;
    }
    return "remove";
}

// What the change takes away, or null.
const StoredValue* lostBy(const StoreChange& change) {
    if (change.kind == Kind::removeValue) return &change.value;
    return change.before ? &*change.before : nullptr;
}

bool isOfValue(const StoreChange& change) { return change.kind == Kind::setValue || change.kind == Kind::removeValue; }

std::string lineOf(const StoreChange& change) {
    std::string line = std::string("  ") + verbOf(change) + ' ' + joined(change.path);
    if (isOfValue(change)) line += '\\' + change.value.name;
    if (change.kind == Kind::setValue) line += " = " + shown(change.value);
    if (const StoredValue* lost = lostBy(change)) line += " (was " + shown(*lost) + ')';
    return line;
}

Json asJson(const StoreChange& change) {
    Json json = {{"change", verbOf(change)}, {"key", joined(change.path)}};
    if (isOfValue(change)) json["name"] = change.value.name;
    if (change.kind == Kind::setValue) json["value"] = shown(change.value);
    if (const StoredValue* lost = lostBy(change)) json["before"] = shown(*lost);
    return json;
}

// The plans, each for the store as the earlier ones leave it.
std::vector<Plan> plansOf(const ProductStore& store, const std::vector<Step>& steps) {
    std::vector<Plan> plans;
    if (steps.size() == 1) {
        plans.push_back(steps[0].plan(store));
        return plans;
    }
    const auto rehearsal = copyOf(store);
    for (const Step& step : steps) {
        plans.push_back(step.plan(ProductStore(*rehearsal)));
        perform(*rehearsal, plans.back());
    }
    return plans;
}

}  // namespace

// Prints each plan's changes after it ends, those that are made even if the others fail. Printing them one by one
// between the writes would take a tenth longer.
void perform(Run& run, Store& store, const std::vector<Step>& steps, std::size_t unreachable) {
    const std::vector<Plan> plans = plansOf(store.products(), steps);
    Json changes = Json::array();
    std::size_t count = 0;
    const auto tell = [&](const StoreChange& change) {
        ++count;
        if (run.request.json) {
            changes.push_back(asJson(change));
        } else {
            run.print(lineOf(change));
        }
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (!run.request.json && !steps[i].label.empty()) {
            run.print(steps[i].label + (plans[i].empty() ? ": nothing to change" : ":"));
        }
        std::size_t made = 0;
        const auto tellMade = [&] { std::for_each_n(plans[i].begin(), made, tell); };
        try {
            store.change(plans[i], &made);
        } catch (...) {
            tellMade();
            throw;
        }
        tellMade();
    }
    Json answer = {
        {"written", !run.request.dryRun && count > 0}, {"backup", store.backup()}, {"changes", std::move(changes)}};
    Lines lines;
    if (count > 0) {
        lines.push_back(counted(count, "change") + (run.request.dryRun ? " to make; nothing was written." : " made."));
    }
    if (!store.backup().empty()) lines.push_back("The store as it was is the backup " + quoted(store.backup()) + '.');
    if (unreachable > 0) {
        answer["unreachable"] = unreachable;
        lines.push_back("With the keys goes what no call can reach: " + counted(unreachable, "value") + '.');
    }
    run.answer(answer, lines);
}

}  // namespace vrix
