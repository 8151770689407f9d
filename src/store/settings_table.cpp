#include "store/settings_table.h"

namespace vrix {

const std::string& SettingsTable::cell(std::size_t index) const {
    const std::size_t rows = names_.count();
    return index < rows ? names_.at(static_cast<int>(index)) : texts_.at(static_cast<int>(index - rows));
}

}  // namespace vrix
