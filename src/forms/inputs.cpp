#include "forms/inputs.h"

#include "common/number.h"
#include "common/runtime_failure.h"
#include "forms/form.h"

namespace vrix {

void TextBox::setText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    changed();
    if (onChange) onChange();
}

void CheckBox::setValue(int value) {
    if (value != 0 && value != 1) throw RuntimeFailure(FailureNumber::invalidPropertyValue);
    value_ = value;
    changed();
}

void CheckBox::restore(const std::string& text) { setValue(toInt16(text)); }

void OptionButton::choose() {
    if (chosen_) return;
    for (OptionButton* other : only<OptionButton>(parent().children())) {
        if (!other->chosen_) continue;
        other->chosen_ = false;
        other->changed();
    }
    chosen_ = true;
    changed();
    if (onClick) onClick();
}

void ComboBox::insertItem(const std::string& text, int row) {
    if (row < 0 || row > count()) throw RuntimeFailure(FailureNumber::invalidCall);
    rows_.insert(rows_.begin() + row, text);
    if (current_ >= row) ++current_;
    form().screen().rowsChanged(*this, RowChange::changed);
}

void ComboBox::removeItem(int row) {
    if (row < 0 || row >= count()) throw RuntimeFailure(FailureNumber::invalidCall);
    rows_.erase(rows_.begin() + row);
    if (current_ == row) {
        current_ = -1;
    } else if (current_ > row) {
        --current_;
    }
    form().screen().rowsChanged(*this, RowChange::changed);
}

void ComboBox::setListIndex(int row) {
    if (row < -1 || row >= count()) throw RuntimeFailure(FailureNumber::invalidPropertyValue);
    if (row != current_) userChooses(row);
}

void ComboBox::userChooses(int row) {
    current_ = row;
    changed();
    if (onClick) onClick();
}

std::string ComboBox::text() const { return current_ < 0 ? std::string() : rows_[static_cast<std::size_t>(current_)]; }

void ComboBox::restore(const std::string& text) {
    const int row = toInt16(text);
    if (row < 0) throw RuntimeFailure(FailureNumber::invalidPropertyValue);
    setListIndex(row);
}

void ComboBox::clear() {
    rows_.clear();
    current_ = -1;
    form().screen().rowsChanged(*this, RowChange::cleared);
}

void MarkList::addItem(const std::string& text, int itemData) {
    rows_.push_back({text, itemData, false});
    form().screen().rowsChanged(*this, RowChange::changed);
}

void MarkList::setMarked(int row, bool marked) {
    if (row < 0 || row >= count()) throw RuntimeFailure(FailureNumber::invalidPropertyValue);
    rows_[static_cast<std::size_t>(row)].marked = marked;
    form().screen().rowsChanged(*this, RowChange::marked);
}

void MarkList::mark(const std::vector<int>& rows) {
    for (const int row : rows) setMarked(row, true);
    if (!rows.empty() && onClick) onClick();
}

void MarkList::userMarks(int row, bool marked) {
    setMarked(row, marked);
    if (onClick) onClick();
}

void MarkList::clear() {
    rows_.clear();
    form().screen().rowsChanged(*this, RowChange::cleared);
}

}  // namespace vrix
