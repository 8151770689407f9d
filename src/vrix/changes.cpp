#include "vrix/changes.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "makers/embedded/embedded_registry.h"
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

// What the change takes away, or null.
const StoredValue* lostBy(const StoreChange& change) {
    return change.kind == Kind::removeValue ? &change.value : change.before.get();
}

bool isOfValue(const StoreChange& change) { return change.kind == Kind::setValue || change.kind == Kind::removeValue; }

std::string lineOf(const StoreChange& change, const std::string& key) {
    std::string line;
    line.reserve(256);
    line.append("  ").append(verbOf(change)).append(" ").append(key);
    if (isOfValue(change)) line.append("\\").append(shown(change.value.name));
    if (change.kind == Kind::setValue) line.append(" = ").append(shown(shown(change.value)));
    if (const StoredValue* lost = lostBy(change)) line.append(" (was ").append(shown(shown(*lost))).append(")");
    return line;
}

Json asJson(const StoreChange& change) {
    Json json = {{"change", verbOf(change)}, {"key", shown(joined(change.path))}};
    if (isOfValue(change)) json["name"] = shown(change.value.name);
    if (change.kind == Kind::setValue) json["value"] = shown(shown(change.value));
    if (const StoredValue* lost = lostBy(change)) json["before"] = shown(shown(*lost));
    return json;
}

// The plans one by one, each for the store that the ones before it leave.
std::vector<Plan> plansOf(const ProductStore& store, const std::vector<Step>& steps) {
    std::vector<Plan> plans;
    if (steps.size() == 1) {
        plans.push_back(steps[0].plan(store));
        return plans;
    }
    EmbeddedRegistry rehearsal;
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
            changes_.push_back(asJson(change));
        } else {
            if (!path_ || !(*path_ == change.path)) {
                path_ = change.path;
                key_ = shown(joined(change.path));
            }
            run_.print(lineOf(change, key_));
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

// Makes the changes of a plan, and tells those that are made even if the others fail. Told one by one between the
// writes, they would take a tenth longer.
void change(const Run& run, Store& store, const Plan& plan, Report& report) {
    std::size_t made = 0;
    const auto tell = [&] {
        for (std::size_t i = 0; i < made; ++i) report.add(plan[i]);
    };
    try {
        if (run.request.dryRun) {
            made = plan.size();
        } else {
            store.change(plan, made);
        }
    } catch (...) {
        tell();
        throw;
    }
    tell();
}

}  // namespace

void copyStore(const ProductStore& from, Registry& to) {
    Plan plan;
    from.walk({}, [&](StoredKey key) {
        const SharedPath path = key.path;
        plan.push_back({Kind::makeKey, path});
        for (StoredValue& value : key.values) plan.push_back({Kind::setValue, path, std::move(value)});
    });
    perform(to, plan);
}

void perform(Run& run, Store& store, const std::vector<Step>& steps) {
    const std::vector<Plan> plans = plansOf(store.products(), steps);
    Report report(run);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        report.begin(steps[i], plans[i]);
        change(run, store, plans[i], report);
    }
    report.end(store.backup());
}

}  // namespace vrix
