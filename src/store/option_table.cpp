#include "store/option_table.h"

#include <algorithm>
#include <utility>

namespace vrix {

const std::vector<OptionRow>& optionTable() {
    static const std::vector<OptionRow> table = [] {
        std::vector<OptionRow> rows;
        for (const OptionFamily& family : optionFamilies) {
            for (std::string& name : numbered(family.pattern, family.count)) {
                rows.push_back({std::move(name), family.kind});
            }
        }
        return rows;
    }();
    return table;
}

const OptionRow* findOption(std::string_view name) {
    const std::vector<OptionRow>& table = optionTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const OptionRow& row) { return row.name == name; });
    return found == table.end() ? nullptr : &*found;
}

std::vector<std::string> numbered(std::string_view pattern, int count) {
    if (count == 0) return {std::string(pattern)};
    std::vector<std::string> names;
    for (int number = 1; number <= count; ++number) {
        names.emplace_back(pattern).replace(pattern.find('#'), 1, std::to_string(number));
    }
    return names;
}

}  // namespace vrix
