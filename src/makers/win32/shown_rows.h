#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vrix {

// The rows of a native list, brought in line with a list of the program at the end of an event: whatever the event did
// to the rows in between, and however often it filled them anew, the native list takes the difference alone.
class ShownRows {
public:
    using Insert = std::function<void(std::size_t row, const std::string& text)>;
    using Remove = std::function<void(std::size_t row)>;
    using Clear = std::function<void()>;

    void become(std::vector<std::string> wanted, const Insert& insert, const Remove& remove, const Clear& clear);

private:
    struct Change {
        std::size_t row;
        const std::string* inserted;  // null: the row goes
    };
    std::vector<Change> changesTo(const std::vector<std::string>& wanted) const;
    std::vector<std::string> rows_;
};

}  // namespace vrix
