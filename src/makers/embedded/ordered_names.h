#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "common/utf8.h"

namespace vrix {

// Items by name, in the order in which they were added. A name keeps the spelling with which it was added. Finding and
// adding cost O(1), removing O(n). Pointers hold until the next set or remove.
template <class Item>
class OrderedNames {
public:
    struct Entry {
        std::string name;
        Item item;
    };

    const std::vector<Entry>& entries() const { return entries_; }

    // The item of exactly that name, or else one whose name differs only in case; null if there is none.
    const Entry* find(const std::string& name) const {
        const auto place = placeOf(name);
        return place == places_.end() ? nullptr : &entries_[place->second];
    }
    const Entry* findExactly(const std::string& name) const {
        const Entry* found = find(name);
        return found != nullptr && found->name == name ? found : nullptr;
    }

    // Replaces the item of exactly that name, or adds it.
    void set(std::string name, Item item) {
        const auto known = placeOf(name);
        if (known != places_.end() && entries_[known->second].name == name) {
            entries_[known->second].item = std::move(item);
            return;
        }
        places_.emplace(foldedName(name), entries_.size());
        entries_.push_back({std::move(name), std::move(item)});
    }

    // Removes an item that is there.
    void remove(const std::string& name) {
        const auto found = placeOf(name);
        const std::size_t removed = found->second;
        places_.erase(found);
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
        for (auto& [folded, place] : places_) place -= place > removed;
    }

private:
    auto placeOf(const std::string& name) const {
        const auto [first, last] = places_.equal_range(foldedName(name));
        const auto exact =
            std::find_if(first, last, [&](const auto& one) { return entries_[one.second].name == name; });
        if (exact != last) return exact;
        return first == last ? places_.end() : first;
    }

    std::vector<Entry> entries_;
    std::unordered_multimap<std::string, std::size_t> places_;  // by folded name
};

}  // namespace vrix
