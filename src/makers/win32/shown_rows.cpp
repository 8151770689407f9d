#include "makers/win32/shown_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "makers/win32/wide_text.h"

namespace vrix {

void ShownRows::replace(HWND list, std::vector<std::string> wanted) {
    const auto [old, fresh] = std::mismatch(rows_.begin(), rows_.end(), wanted.begin(), wanted.end());
    const auto ends = std::mismatch(rows_.rbegin(), std::make_reverse_iterator(old), wanted.rbegin(),
                                    std::make_reverse_iterator(fresh));
    auto first = static_cast<std::size_t>(old - rows_.begin());
    auto oldEnd = static_cast<std::size_t>(ends.first.base() - rows_.begin());
    auto end = static_cast<std::size_t>(ends.second.base() - wanted.begin());
    if (oldEnd - first + end - first > wanted.size()) {  // to fill the list anew is less work
        SendMessageW(list, messages_.clear, 0, 0);
        first = oldEnd = 0;
        end = wanted.size();
    }
    while (oldEnd > first) SendMessageW(list, messages_.remove, --oldEnd, 0);
    for (; first < end; ++first) {
        const std::wstring row = wide(wanted[first]);
        SendMessageW(list, messages_.insert, first, reinterpret_cast<LPARAM>(row.c_str()));
    }
    rows_ = std::move(wanted);
}

}  // namespace vrix
