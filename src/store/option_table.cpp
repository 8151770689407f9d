#include "store/option_table.h"

#include <algorithm>

namespace vrix {

namespace {

// The pattern with the number in the place of "#".
std::string numbered(std::string_view pattern, int number) {
    std::string name(pattern);
    return name.replace(name.find('#'), 1, std::to_string(number));
}

}  // namespace

const std::vector<OptionRow>& optionTable() {
    static const std::vector<OptionRow> table = [] {
        std::vector<OptionRow> rows;
        for (const OptionFamily& family : optionFamilies) {
            if (family.count == 0) rows.push_back({std::string(family.pattern), family.kind});
            for (int n = 1; n <= family.count; ++n) rows.push_back({numbered(family.pattern, n), family.kind});
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

}  // namespace vrix
