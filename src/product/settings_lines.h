#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

// What the readers of settings files share.

// The text split at its line ends, CR LF or LF. The rest behind the last one is a line too, if it is not empty.
std::vector<std::string_view> linesOf(std::string_view text);

// Throws Refusal (malformed), which names the line of that index.
[[noreturn]] void refuseLine(std::size_t index, const std::string& why);
// The same for the first line that is not good.
[[noreturn]] void refuseFirst(std::string_view text, const std::function<bool(std::string_view)>& isGood,
                              const std::string& why);

// The key of a header such as "[HKEY_LOCAL_MACHINE\Software\Vrix\Products]", from the family key downwards. Refuses a
// deletion, and what is outside of the family key.
KeyPath headerPath(std::string_view line, std::size_t index);

// The tree whose list of Products has that path, if it is one.
std::optional<Tree> treeOfList(const KeyPath& path);

// The values of a key as the registry has them: a repeated name replaces the data of the first one.
Values merged(Values values);

// A value as a store keeps it: a text ends with a zero byte.
StoredValue storable(StoredValue value);

// The two parsers, for decoded text. Hexadecimal text data in the editor's format are UTF-16 if `hexIsUtf16`, else
// bytes of the code page.
Product readToolkitSettings(std::string_view text);
Product readEditorSettings(std::string_view text, bool hexIsUtf16, const Encoding& encoding);

}  // namespace vrix
