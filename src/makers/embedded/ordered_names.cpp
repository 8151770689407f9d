#include "makers/embedded/ordered_names.h"

#include <array>
#include <bit>

namespace vrix {

namespace {

constexpr std::array<unsigned char, 256> foldTable() {
    std::array<unsigned char, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        const bool plain = i >= 'A' && i <= 'Z';
        const bool latin = i >= 0xC0 && i <= 0xDE && i != 0xD7;
        table[i] = static_cast<unsigned char>(plain || latin ? i + 0x20 : i);
    }
    // The four letters of code page 1252 whose capital lies outside the Latin row.
    table[0x8A] = 0x9A;
    table[0x8C] = 0x9C;
    table[0x8E] = 0x9E;
    table[0x9F] = 0xFF;
    return table;
}

constexpr auto folds = foldTable();

// The largest power of two that divides a number above 0.
std::size_t lowestBit(std::size_t number) { return number & (~number + 1); }

}  // namespace

std::string foldedName(const std::string& name) {
    std::string folded = name;
    for (char& c : folded) c = static_cast<char>(folds[static_cast<unsigned char>(c)]);
    return folded;
}

void UsedSlots::append() {
    const std::size_t end = sums_.size() + 1;
    std::size_t sum = 1;
    for (std::size_t part = 1; part < lowestBit(end); part *= 2) sum += sums_[end - part - 1];
    sums_.push_back(sum);
    ++used_;
}

void UsedSlots::release(std::size_t slot) {
    for (std::size_t end = slot + 1; end <= sums_.size(); end += lowestBit(end)) --sums_[end - 1];
    --used_;
}

std::size_t UsedSlots::at(std::size_t index) const {
    std::size_t slot = 0;
    for (std::size_t step = std::bit_floor(sums_.size()); step > 0; step /= 2) {
        if (slot + step > sums_.size() || sums_[slot + step - 1] > index) continue;
        slot += step;
        index -= sums_[slot - 1];
    }
    return slot;
}

}  // namespace vrix
