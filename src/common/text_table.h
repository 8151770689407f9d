#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vrix {

// A table of texts with rows from 0, or empty text instead of a table. A row outside the table is failure 9, any use of
// empty text as a table failure 13.
class TextTable {
public:
    TextTable() = default;  // a table with no element

    void becomeEmptyText();
    bool isTable() const { return isTable_; }

    // Replaces the table by elements 0 to `upper`, all empty; failure 9 for an upper bound of -1 or less.
    void sizeTo(int upper);
    // Grows the table to elements 0 to `upper` and keeps what it holds. It never shrinks.
    void growTo(int upper);

    std::size_t count() const;
    std::string& at(int row);
    const std::string& at(int row) const;

private:
    bool isTable_ = true;
    std::vector<std::string> elements_;
};

}  // namespace vrix
