#include "common/text_table.h"

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
    if (!isTable_) throw RuntimeFailure(FailureNumber::typeMismatch);
    if (upper < 0) throw RuntimeFailure(FailureNumber::subscript);
    const std::size_t size = static_cast<std::size_t>(upper) + 1;
    if (size > elements_.size()) elements_.resize(size);
}

std::size_t TextTable::count() const {
    if (!isTable_) throw RuntimeFailure(FailureNumber::typeMismatch);
    return elements_.size();
}

const std::string& TextTable::at(int row) const {
    if (!isTable_) throw RuntimeFailure(FailureNumber::typeMismatch);
    if (row < 0 || static_cast<std::size_t>(row) >= elements_.size()) throw RuntimeFailure(FailureNumber::subscript);
    return elements_[static_cast<std::size_t>(row)];
}

std::string& TextTable::at(int row) { return const_cast<std::string&>(std::as_const(*this).at(row)); }

}  // namespace vrix
