#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "common/refusal.h"
#include "makers/standard/standard_files.h"
#include "product/check.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

using Json = nlohmann::ordered_json;
using Findings = std::vector<Finding>;

void append(Findings& all, Findings more) { std::move(more.begin(), more.end(), std::back_inserter(all)); }

Findings findIn(const Run& run, const Product& product) {
    Findings all = checkProduct(product);
    if (run.request.files) {
        StandardFiles files;
        append(all, checkFiles(product, files));
    }
    return all;
}

// What stands in the other registry of the same machine, if it has two.
Findings findInOtherView(Run& run, Store& store) {
    if (!store.isRegistry()) return {};
    RegistryView view = run.request.store.view;
    if (view == RegistryView::own) view = run.machine.ownView();
    const auto other = run.machine.registry(view == RegistryView::bits64 ? RegistryView::bits32 : RegistryView::bits64);
    return other ? checkViews(store.products(), ProductStore(*other)) : Findings();
}

Findings findInStore(Run& run) {
    Store store(run, Store::Use::reading);
    const ProductStore products = store.products();
    Findings all = checkStore(products);
    for (const ProductId& id : products.list()) append(all, findIn(run, products.read(id)));
    append(all, findInOtherView(run, store));
    return all;
}

Findings findInNamed(Run& run) {
    ProductSource source(run);
    Findings all;
    for (const std::string& name : run.request.operands) append(all, findIn(run, source.read(name)));
    return all;
}

Json asJson(const FindingKind& kind) {
    return {{"finding", kind.name},
            {"severity", severityName(kind.severity)},
            {"what", kind.what},
            {"advice", kind.advice}};
}

Json asJson(const Findings& findings) {
    Json all = Json::array();
    for (const Finding& finding : findings) {
        all.push_back(asJson(*finding.kind));
        all.back()["place"] = shown(finding.place);
        all.back()["detail"] = shown(finding.detail);
    }
    return all;
}

std::size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<std::size_t>(std::count_if(
        findings.begin(), findings.end(), [&](const Finding& finding) { return finding.kind->severity == severity; }));
}

void print(Run& run, const Findings& findings) {
    for (const Finding& finding : findings) {
        const FindingKind& kind = *finding.kind;
        const std::string detail = finding.detail.empty() ? "" : " [" + shown(finding.detail) + "]";
        run.print(std::string(severityName(kind.severity)) + " " + std::string(kind.name) + ": " +
                  shown(finding.place) + detail);
        run.print("  " + std::string(kind.what) + " " + std::string(kind.advice));
    }
    if (findings.empty()) {
        run.print("Nothing was found.");
    } else {
        run.print(counted(countOf(findings, Severity::error), "error") + ", " +
                  counted(countOf(findings, Severity::warning), "warning") + ", " +
                  counted(countOf(findings, Severity::note), "note") + ".");
    }
}

std::string names() {
    std::string all;
    for (const FindingKind& kind : findingKinds()) all += (all.empty() ? "" : ", ") + std::string(kind.name);
    return all;
}

ExitCode explain(Run& run) {
    const FindingKind* kind = findFindingKind(run.request.finding);
    if (kind == nullptr) {
        throw Refusal(Refusal::Kind::notFound,
                      "there is no finding " + quoted(run.request.finding) + ", but: " + names());
    }
    if (run.request.json) {
        Json json = asJson(*kind);
        json["explain"] = kind->explain;
        run.printJson(json);
        return ExitCode::done;
    }
    run.print(std::string(kind->name) + " (" + severityName(kind->severity) + ")\n" + std::string(kind->what) + " " +
              std::string(kind->advice) + "\n\n" + std::string(kind->explain));
    return ExitCode::done;
}

}  // namespace

ExitCode check(Run& run) {
    if (!run.request.finding.empty()) return explain(run);
    const Findings findings = run.request.operands.empty() ? findInStore(run) : findInNamed(run);
    if (run.request.json) {
        run.printJson(asJson(findings));
    } else {
        print(run, findings);
    }
    return findings.empty() ? ExitCode::done : ExitCode::different;
}

}  // namespace vrix::command
