#include "vrix/changes.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "makers/embedded/memory_registry.h"
#include "product/compare.h"

namespace vrix {

namespace {

using Json = nlohmann::ordered_json;
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

bool isOfValue(const StoreChange& change) { return change.kind == Kind::setValue || change.kind == Kind::removeValue; }

std::string lineOf(const Run& run, const StoreChange& change, const std::string& key) {
    std::string line = std::string("  ") + verbOf(change) + " " + key;
    if (isOfValue(change)) line += '\\' + run.shown(change.value.name);
    if (change.kind == Kind::setValue) line += " = " + run.shown(shown(change.value));
    if (change.before) line += " (was " + run.shown(shown(*change.before)) + ")";
    return line;
}

Json asJson(const Run& run, const StoreChange& change) {
    Json json = {{"change", verbOf(change)}, {"key", run.shown(joined(change.path))}};
    if (isOfValue(change)) json["name"] = run.shown(change.value.name);
    if (change.kind == Kind::setValue) json["value"] = run.shown(shown(change.value));
    if (change.before) json["before"] = run.shown(shown(*change.before));
    return json;
}

// The plans one by one, each for the store that the ones before it leave.
std::vector<Plan> plansOf(const ProductStore& store, const std::vector<Step>& steps) {
    std::vector<Plan> plans;
    if (steps.size() == 1) {
        plans.push_back(steps[0].plan(store));
        return plans;
    }
    MemoryRegistry rehearsal;
    copyStore(store, rehearsal);
    for (const Step& step : steps) {
        plans.push_back(step.plan(ProductStore(rehearsal)));
        perform(rehearsal, plans.back());
    }
    return plans;
}

// Tells what becomes of the store.
class Report {
public:
    explicit Report(Run& run) : run_(run) {}

    void begin(const Step& step, const Plan& plan) {
        if (!run_.request.json && !step.label.empty())
            run_.print(step.label + (plan.empty() ? ": nothing to change" : ":"));
    }
    void add(const StoreChange& change) {
        ++count_;
        if (run_.request.json) {
            changes_.push_back(asJson(run_, change));
        } else {
            if (!path_ || !(*path_ == change.path)) {
                path_ = change.path;
                key_ = run_.shown(joined(change.path));
            }
            run_.print(lineOf(run_, change, key_));
        }
    }
    void end(const std::string& backup) {
        if (run_.request.json) {
            run_.printJson(Json{
                {"written", !run_.request.dryRun && count_ > 0}, {"backup", backup}, {"changes", std::move(changes_)}});
        } else if (count_ > 0) {
            run_.print(counted(count_, "change") + (run_.request.dryRun ? " to make; nothing was written." : " made."));
            if (!backup.empty()) run_.print("The store as it was is the backup " + quoted(backup) + ".");
        }
    }

private:
    Run& run_;
    std::optional<SharedPath> path_;  // of the last change
    std::string key_;                 // that path as it is told
    Json changes_ = Json::array();
    std::size_t count_ = 0;
};

}  // namespace

void copyStore(const ProductStore& from, Registry& to) {
    Plan plan;
    from.walk({}, [&](const KeyPath& key, std::vector<StoredValue> values) {
        const SharedPath path = key;
        plan.push_back({Kind::makeKey, path});
        for (StoredValue& value : values) plan.push_back({Kind::setValue, path, std::move(value)});
    });
    perform(to, plan);
}

void perform(Run& run, Store& store, const std::vector<Step>& steps) {
    const std::vector<Plan> plans = plansOf(store.products(), steps);
    Report report(run);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        report.begin(steps[i], plans[i]);
        const auto tell = [&](const StoreChange& change) { report.add(change); };
        if (run.request.dryRun) {
            for (const StoreChange& change : plans[i]) tell(change);
        } else {
            store.change(plans[i], tell);
        }
    }
    report.end(store.backup());
}

}  // namespace vrix
