#include "product/compare.h"

#include <nlohmann/json.hpp>

#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

using Json = nlohmann::ordered_json;

Json sideOf(const std::optional<std::string>& side) { return side ? Json(shown(*side)) : Json(); }

Json asJson(const std::vector<Difference>& differences) {
    Json all = Json::array();
    for (const Difference& difference : differences) {
        all.push_back({{"group", groupName(difference.group)},
                       {"what", shown(difference.what)},
                       {"left", sideOf(difference.left)},
                       {"right", sideOf(difference.right)}});
    }
    return all;
}

void print(Run& run, const std::vector<Difference>& differences) {
    std::optional<Group> group;
    for (const Difference& difference : differences) {
        if (group != difference.group) run.print(groupName(difference.group));
        group = difference.group;
        const auto side = [&](const char* mark, const std::optional<std::string>& text) {
            if (text) run.print(std::string("  ") + mark + " " + shown(difference.what) + " = " + shown(*text));
        };
        side("-", difference.left);
        side("+", difference.right);
    }
}

}  // namespace

ExitCode compare(Run& run) {
    ProductSource source(run);
    const Product left = source.read(run.request.operands.at(0));
    const Product right = source.read(run.request.operands.at(1));
    const std::vector<Difference> differences = vrix::compare(left, right);
    if (run.request.json) {
        run.printJson(asJson(differences));
    } else if (differences.empty()) {
        run.print("No differences.");
    } else {
        print(run, differences);
    }
    return differences.empty() ? ExitCode::done : ExitCode::different;
}

}  // namespace vrix::command
