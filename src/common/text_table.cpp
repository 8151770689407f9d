#include "common/text_table.h"

#include <algorithm>
#include <utility>

#include "common/runtime_failure.h"

namespace vrix {

void TextTable::becomeEmptyText() {
    isTable_ = false;
    elements_.clear();
}

void TextTable::sizeTo(int upper) {
    if (upper < 0) throw RuntimeFailure(FailureNumber::subscript);
    isTable_ = true;
    elements_.assign(static_cast<std::size_t>(upper) + 1, {});
}

void TextTable::growTo(int upper) {
    const std::size_t held = count();
    if (upper < 0) throw RuntimeFailure(FailureNumber::subscript);
    elements_.resize(std::max(held, static_cast<std::size_t>(upper) + 1));
}

std::size_t TextTable::count() const {
    if (!isTable_) throw RuntimeFailure(FailureNumber::typeMismatch);
    return elements_.size();
}

const std::string& TextTable::at(int row) const {
    const std::size_t rows = count();
    if (row < 0 || static_cast<std::size_t>(row) >= rows) throw RuntimeFailure(FailureNumber::subscript);
    return elements_[static_cast<std::size_t>(row)];
}

std::string& TextTable::at(int row) { return const_cast<std::string&>(std::as_const(*this).at(row)); }

}  // namespace vrix
