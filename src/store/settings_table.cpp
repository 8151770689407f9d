#include "store/settings_table.h"

#include "common/runtime_failure.h"

namespace vrix {

int SettingsTable::rowCount() const {
    if (!isTable()) throw RuntimeFailure(FailureNumber::typeMismatch);
    return static_cast<int>(names_.size());
}

const std::string& SettingsTable::cell(std::size_t index) const {
    const auto rows = static_cast<std::size_t>(rowCount());
    if (index >= 2 * rows) throw RuntimeFailure(FailureNumber::subscript);
    return index < rows ? names_[index] : texts_[index - rows];
}

const std::string& SettingsTable::cell(const std::vector<std::string>& column, int row) const {
    if (row < 0 || row >= rowCount()) throw RuntimeFailure(FailureNumber::subscript);
    return column[static_cast<std::size_t>(row)];
}

}  // namespace vrix
