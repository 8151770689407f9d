#include "product/compare.h"

#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

ExitCode compare(Run& run) {
    ProductSource source(run);
    const Product left = source.read(run.request.operands.at(0));
    const Product right = source.read(run.request.operands.at(1));
    Json all = Json::array();
    Lines lines;
    for (const Difference& one : vrix::compare(left, right)) {
        const std::string group = groupName(one.group);
        if (all.empty() || all.back()["group"] != group) lines.push_back(group);
        if (one.left) lines.push_back("  - " + one.what + " = " + *one.left);
        if (one.right) lines.push_back("  + " + one.what + " = " + *one.right);
        const auto side = [](const std::optional<std::string>& text) { return text ? Json(*text) : Json(); };
        all.push_back({{"group", group}, {"what", one.what}, {"left", side(one.left)}, {"right", side(one.right)}});
    }
    run.answer(all, all.empty() ? Lines{"No differences."} : lines);
    return all.empty() ? ExitCode::done : ExitCode::different;
}

}  // namespace vrix::command
