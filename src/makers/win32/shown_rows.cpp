#include "makers/win32/shown_rows.h"

#include <utility>

namespace vrix {

// Follows both lists side by side. It sees single rows that came or went; any other row that differs goes and comes.
std::vector<ShownRows::Change> ShownRows::changesTo(const std::vector<std::string>& wanted) const {
    std::vector<Change> changes;
    std::size_t old = 0;
    std::size_t now = 0;
    const auto same = [&](std::size_t oldStep, std::size_t nowStep) {
        return old + oldStep < rows_.size() && now + nowStep < wanted.size() &&
               rows_[old + oldStep] == wanted[now + nowStep];
    };
    while (old < rows_.size() || now < wanted.size()) {
        if (same(0, 0)) {
            ++old;
            ++now;
            continue;
        }
        const bool came = same(0, 1);
        const bool went = !came && same(1, 0);
        if (old < rows_.size() && !came) {
            changes.push_back({now, nullptr});
            ++old;
        }
        if (now < wanted.size() && !went) {
            changes.push_back({now, &wanted[now]});
            ++now;
        }
    }
    return changes;
}

void ShownRows::become(std::vector<std::string> wanted, const Insert& insert, const Remove& remove,
                       const Clear& clear) {
    const std::vector<Change> changes = changesTo(wanted);
    if (changes.size() <= wanted.size()) {
        for (const Change& change : changes) {
            if (change.inserted == nullptr) {
                remove(change.row);
            } else {
                insert(change.row, *change.inserted);
            }
        }
    } else {
        clear();
        for (std::size_t row = 0; row < wanted.size(); ++row) insert(row, wanted[row]);
    }
    rows_ = std::move(wanted);
}

}  // namespace vrix
