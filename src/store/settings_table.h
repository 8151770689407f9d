#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "common/text_table.h"

namespace vrix {

// All values of a section as rows from 0, each a name (column 0) and a text (column 1); or empty text for a section
// without values. A row outside the table is failure 9, any use of empty text as a table failure 13.
class SettingsTable {
public:
    SettingsTable() {  // empty text
        names_.becomeEmptyText();
        texts_.becomeEmptyText();
    }
    // `names` and `texts` have the same length, which is not 0.
    SettingsTable(std::vector<std::string> names, std::vector<std::string> texts)
        : names_(std::move(names)), texts_(std::move(texts)) {}

    bool isTable() const { return names_.isTable(); }
    const std::string& name(int row) const { return names_.at(row); }
    const std::string& text(int row) const { return texts_.at(row); }

    // The cells in the order of storage: all names, then all texts.
    std::size_t cellCount() const { return 2 * names_.count(); }
    const std::string& cell(std::size_t index) const {
        const std::size_t rows = names_.count();
        return index < rows ? names_.at(static_cast<int>(index)) : texts_.at(static_cast<int>(index - rows));
    }

private:
    TextTable names_;
    TextTable texts_;
};

}  // namespace vrix
