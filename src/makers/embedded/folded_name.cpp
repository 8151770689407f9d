#include "makers/embedded/folded_name.h"

#include <array>

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

}  // namespace

std::string foldedName(const std::string& name) {
    std::string folded = name;
    for (char& c : folded) c = static_cast<char>(folds[static_cast<unsigned char>(c)]);
    return folded;
}

}  // namespace vrix
