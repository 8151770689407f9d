#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/encoding.h"
#include "product/product.h"

namespace vrix {

// What the readers of settings files share.

// The text cut at its line ends, CR LF or LF. What stands behind the last one is a line too, if it is not empty.
std::vector<std::string_view> linesOf(std::string_view text);

// "line 12" for index 11.
std::string linePlace(std::size_t index);
[[noreturn]] void refuseLine(std::size_t index, const std::string& why);

// The key of a header such as "[HKEY_LOCAL_MACHINE\Software\Vrix\Products]", from the family key downwards. Refuses a
// deletion, and what is outside of the family key.
KeyPath headerPath(std::string_view line, std::size_t index);

// The values of a key in the making. As in the registry, a name that comes again gives the first one its new data.
class GrowingKey {
public:
    // Makes room for so many values.
    void reserve(std::size_t count);
    void put(StoredValue value);
    std::vector<StoredValue> take() { return std::move(values_); }
    bool empty() const { return values_.empty(); }
    const std::vector<StoredValue>& values() const { return values_; }

private:
    std::vector<StoredValue> values_;
    std::unordered_map<std::string, std::size_t> places_;
};

// A value as a store keeps it: a text ends with a zero byte.
StoredValue storable(StoredValue value);

// UTF-16, least byte first, as UTF-8; nothing for half a character.
std::optional<std::string> fromUtf16(std::string_view bytes);

// The two formats.
Product readToolkitSettings(std::string_view file);
// `isUtf8` says that the text was brought to UTF-8 and goes to the code page piece by piece; else it is taken as it is.
Product readEditorSettings(std::string_view text, bool isUtf8, bool hexIsUtf16, const Encoding& encoding);

}  // namespace vrix
