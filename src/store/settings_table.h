#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vrix {

// All values of a section as rows from 0, each a name (column 0) and a text (column 1); or empty text for a section
// without values. A row outside the table is failure 9, any use of empty text as a table failure 13.
class SettingsTable {
public:
    SettingsTable() = default;  // empty text
    // `names` and `texts` have the same length, which is not 0.
    SettingsTable(std::vector<std::string> names, std::vector<std::string> texts)
        : names_(std::move(names)), texts_(std::move(texts)) {}

    bool isTable() const { return !names_.empty(); }
    const std::string& name(int row) const { return cell(names_, row); }
    const std::string& text(int row) const { return cell(texts_, row); }

    int rowCount() const;
    // The cells in the order of storage: all names, then all texts.
    std::size_t cellCount() const { return 2 * static_cast<std::size_t>(rowCount()); }
    const std::string& cell(std::size_t index) const;

private:
    const std::string& cell(const std::vector<std::string>& column, int row) const;
    std::vector<std::string> names_;
    std::vector<std::string> texts_;
};

}  // namespace vrix
