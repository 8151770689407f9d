#pragma once

#include <string>
#include <string_view>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

// The settings file of the Product of that tree, key and name, as UTF-8: what the Toolkit's own Export writes for it.
// Where the Export would end the program, at a list without values, the section stays without entries. Code page 65001
// must hold. encodedSettings() makes the file of it.
std::string settingsText(Registry& registry, const ProductId& id);

// Reads a settings file. Which of three it is shows by its content:
// - what the Toolkit writes: REGEDIT4, the first section one of the two lists. It must be whole, section by section.
//   Names and texts are taken as they stand, with quotation marks and backslashes; only paths are unescaped. A line
//   that can be read in two ways is refused. The date of creation goes by the name that the tree has for it, and an
//   empty one is none.
// - what the platform's registry editor writes: REGEDIT4 with any other first section, by that format's rules, escapes
//   included.
// - the same in version 5.00.
// Each may be UTF-16 or UTF-8 with its mark; without one it is text of the code page, that of the machine which wrote
// it. A Product's name may be missing in the editor's files, where only the root was exported. Throws Refusal
// (malformed), which tells the line, for what fits neither, for a key outside of the one Product and its row, for
// deletions, zero characters, bytes that stand for no character, and a file that is cut off.
Product readSettings(std::string_view file, const Encoding& encoding);

}  // namespace vrix
