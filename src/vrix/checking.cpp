#include <algorithm>
#include <iterator>

#include "common/refusal.h"
#include "makers/standard/standard_files.h"
#include "product/check.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

using Findings = std::vector<Finding>;

void append(Findings& all, Findings more) { std::move(more.begin(), more.end(), std::back_inserter(all)); }

Findings findIn(const Run& run, const Product& product) {
    Findings all = checkProduct(product);
    if (run.request.files) {
        StandardFiles files(run.machine.disk());
        append(all, checkFiles(product, files));
    }
    return all;
}

// Findings in the other registry view of the same machine, if it has two.
Findings findInOtherView(Run& run, Store& store) {
    if (!run.request.isOnRegistry()) return {};
    RegistryView view = run.request.view;
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

std::string summaryOf(const Findings& findings) {
    if (findings.empty()) return "Nothing was found.";
    Lines counts;
    for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
        const auto count = std::count_if(findings.begin(), findings.end(),
                                         [&](const Finding& one) { return one.kind->severity == severity; });
        counts.push_back(counted(static_cast<std::size_t>(count), severityName(severity)));
    }
    return joined(counts, ", ") + '.';
}

ExitCode explain(Run& run) {
    const FindingKind* kind = findFindingKind(run.request.finding);
    if (kind == nullptr) {
        Lines names;
        for (const FindingKind& known : findingKinds()) names.push_back(known.name);
        throw Refusal(Refusal::Kind::notFound,
                      "there is no finding " + quoted(run.request.finding) + ", but: " + joined(names, ", "));
    }
    Json json = asJson(*kind);
    json["explain"] = kind->explain;
    run.answer(json, {std::string(kind->name) + " (" + severityName(kind->severity) + ")",
                      std::string(kind->what) + " " + kind->advice, "", kind->explain});
    return ExitCode::done;
}

}  // namespace

ExitCode check(Run& run) {
    if (!run.request.finding.empty()) return explain(run);
    const Findings findings = run.request.operands.empty() ? findInStore(run) : findInNamed(run);
    Json all = Json::array();
    Lines lines;
    for (const auto& [kind, place, detail] : findings) {
        all.push_back(asJson(*kind));
        all.back().update({{"place", place}, {"detail", detail}});
        const std::string where = place + (detail.empty() ? "" : " [" + detail + "]");
        lines.push_back(std::string(severityName(kind->severity)) + " " + kind->name + ": " + where);
        lines.push_back(std::string("  ") + kind->what + " " + kind->advice);
    }
    lines.push_back(summaryOf(findings));
    run.answer(all, lines);
    return findings.empty() ? ExitCode::done : ExitCode::different;
}

}  // namespace vrix::command
