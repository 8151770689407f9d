#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrix {

// A name as it is compared: without regard to case, in ASCII and for the letters of code page 1252.
std::string foldedName(const std::string& name);

// Which slots of a growing row are in use. Every operation costs O(log n).
class UsedSlots {
public:
    std::size_t count() const { return used_; }
    void append();
    void release(std::size_t slot);
    // The slot of the used one at `index`, which is below count().
    std::size_t at(std::size_t index) const;

private:
    std::vector<std::size_t> sums_;  // a binary indexed tree of how many are in use
    std::size_t used_ = 0;
};

// Items by name, in the order in which they were added. Finding by name costs O(1), the rest O(log n). A name keeps the
// spelling with which it was added. Pointers hold until the next add or remove.
template <class Item>
class OrderedNames {
public:
    struct Entry {
        std::string name;
        Item item;
    };

    std::size_t size() const { return used_.count(); }
    const Entry& at(std::size_t index) const { return *slots_[used_.at(index)]; }

    const Entry* find(const std::string& name) const {
        const auto found = slotOf_.find(foldedName(name));
        return found == slotOf_.end() ? nullptr : &*slots_[found->second];
    }
    Entry* find(const std::string& name) { return const_cast<Entry*>(std::as_const(*this).find(name)); }

    void add(std::string name, Item item) {
        slotOf_.emplace(foldedName(name), slots_.size());
        slots_.push_back(Entry{std::move(name), std::move(item)});
        used_.append();
    }

    void remove(const std::string& name) {
        const auto found = slotOf_.find(foldedName(name));
        if (found == slotOf_.end()) return;
        used_.release(found->second);
        slots_[found->second].reset();
        slotOf_.erase(found);
        if (size() * 2 < slots_.size()) closeGaps();
    }

private:
    // Costs O(n log n), after at least n removals.
    void closeGaps() {
        std::vector<std::optional<Entry>> kept;
        used_ = {};
        for (auto& slot : slots_) {
            if (!slot) continue;
            slotOf_[foldedName(slot->name)] = kept.size();
            kept.push_back(std::move(slot));
            used_.append();
        }
        slots_ = std::move(kept);
    }

    std::unordered_map<std::string, std::size_t> slotOf_;  // by folded name
    std::vector<std::optional<Entry>> slots_;
    UsedSlots used_;
};

}  // namespace vrix
