#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "common/utf8.h"

namespace vrix {

// Items by name, in the order in which they were added. A name keeps the spelling with which it was added. Finding and
// adding cost O(1), removing O(n). Pointers hold until the next add or remove.
template <class Item>
class OrderedNames {
public:
    struct Entry {
        std::string name;
        Item item;
    };

    std::size_t size() const { return entries_.size(); }
    const Entry& at(std::size_t index) const { return entries_[index]; }

    Entry* find(const std::string& name) {
        const auto found = places_.find(foldedName(name));
        return found == places_.end() ? nullptr : &entries_[found->second];
    }

    void add(std::string name, Item item) {
        places_.emplace(foldedName(name), entries_.size());
        entries_.push_back({std::move(name), std::move(item)});
    }

    // Removes an item that is there.
    void remove(const std::string& name) {
        const auto found = places_.find(foldedName(name));
        const std::size_t removed = found->second;
        places_.erase(found);
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
        for (auto& [folded, place] : places_) place -= place > removed;
    }

private:
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> places_;  // by folded name
};

}  // namespace vrix
