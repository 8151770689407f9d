#pragma once

#include <string>
#include <string_view>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

// The settings file of the Product of that tree, key and name: the bytes that the Toolkit's own Export writes for it.
// Where the Export would end the program, at a list without values, the section stays without entries.
std::string settingsText(Registry& registry, const ProductId& id);

// Reads a settings file. Which of three it is shows by its content:
// - what the Toolkit writes: REGEDIT4, the first section one of the two lists. It must be whole, section by section.
//   Names and texts are taken as they stand, with quotation marks and backslashes; only paths are unescaped. A line
//   that can be read in two ways is refused. The date of creation goes by the name that the tree has for it, and an
//   empty one is none.
// - what the platform's registry editor writes: REGEDIT4 with any other first section, by that format's rules, escapes
//   included. Texts of this file and of the first are bytes of the store's code page.
// - the same in version 5.00: UTF-16, least byte first, with its mark. Texts are brought to the code page.
// A Product's name may be missing in the editor's files, where only the root was exported.
// Throws Malformed, which tells the line, for what fits neither, for a key outside of the one Product and its row, for
// deletions, zero bytes, characters that the code page lacks, and a file that is cut off.
Product readSettings(std::string_view file, const Encoding& encoding);

}  // namespace vrix
