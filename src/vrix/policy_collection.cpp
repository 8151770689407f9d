#include "vrix/policy_collection.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <map>

#include "common/utf8.h"

namespace vrix {

namespace {

constexpr auto collectionClass = "{53B533F5-224C-47e3-B01B-CA3B3F3FF4BF}";
constexpr auto itemClass = "{9CD4B2F4-923D-47f5-A062-E897DD1DAD50}";
constexpr auto changed = "2000-01-01 00:00:00";  // constant, so that the same Product gives the same file

// The 64-bit FNV-1a hash, from a given seed.
std::uint64_t hashOf(const std::string& text, std::uint64_t start) {
    for (const char c : text) start = (start ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    return start;
}

// A deterministic GUID for a text. Version 8 means a custom scheme.
std::string guidOf(const std::string& text) {
    const std::uint64_t high = (hashOf(text, 0xCBF29CE484222325u) & ~0xF000ull) | 0x8000u;
    const std::uint64_t low = (hashOf(text, high) & 0x3FFFFFFFFFFFFFFFull) | 0x8000000000000000ull;
    std::array<char, 48> guid{};
    std::snprintf(guid.data(), guid.size(), "{%08lX-%04lX-%04lX-%04lX-%012llX}", static_cast<unsigned long>(high >> 32),
                  static_cast<unsigned long>(high >> 16 & 0xFFFFu), static_cast<unsigned long>(high & 0xFFFFu),
                  static_cast<unsigned long>(low >> 48), static_cast<unsigned long long>(low & 0xFFFFFFFFFFFFull));
    return guid.data();
}

std::string escaped(const std::string& text, const std::string& place) {
    static const std::map<char, std::string> signs{{'&', "&amp;"}, {'<', "&lt;"},   {'>', "&gt;"},  {'"', "&quot;"},
                                                   {'\t', "&#9;"}, {'\n', "&#10;"}, {'\r', "&#13;"}};
    if (!isWhole(text)) throw malformed(place, "XML cannot hold half a character");
    std::string safe;
    for (const char c : text) {
        const auto sign = signs.find(c);
        const bool isControl = static_cast<unsigned char>(c) < 0x20;
        if (sign == signs.end() && isControl) throw malformed(place, "XML cannot hold a control character");
        safe += sign == signs.end() ? std::string(1, c) : sign->second;
    }
    return safe;
}

// How an item holds a value. The image is the one for replaced texts, or that for replaced numbers and bytes.
struct Form {
    const char* image;
    const char* type;
    std::string value;
};

Form formOf(const StoredValue& value, const std::string& place) {
    const bool endsOnce = value.data.find('\0') + 1 == value.data.size();
    if (value.type == valuetype::string && endsOnce) return {"6", "REG_SZ", escaped(textOf(value), place)};
    if (value.type == valuetype::expandString && endsOnce) {
        return {"6", "REG_EXPAND_SZ", escaped(value.data.c_str(), place)};
    }
    if (value.type == valuetype::binary) return {"11", "REG_BINARY", hexDigits(value.data)};
    if (value.type == valuetype::dword && value.data.size() == 4) {
        return {"11", "REG_DWORD", hexDigits(std::string(value.data.rbegin(), value.data.rend()))};
    }
    throw malformed(place, "a policy's collection has no form for this value");
}

std::string itemOf(const std::string& family, const KeyPath& path, const StoredValue& value) {
    const std::string place = joined(path) + '\\' + value.name;
    const std::string key = escaped(family + '\\' + joined(path), place);
    const std::string name = escaped(value.name, place);
    const std::string title = name.empty() ? "(Default)" : name;
    const Form form = formOf(value, place);
    return "  <Registry clsid=\"" + std::string(itemClass) + "\" name=\"" + title + "\" status=\"" + title +
           "\" image=\"" + form.image + "\" changed=\"" + changed + "\" uid=\"" + guidOf(key + '\n' + name) +
           "\" bypassErrors=\"1\">\r\n    <Properties action=\"R\" displayDecimal=\"0\" default=\"" +
           (name.empty() ? "1" : "0") + "\" hive=\"HKEY_LOCAL_MACHINE\" key=\"" + key + "\" name=\"" + name +
           "\" type=\"" + form.type + "\" value=\"" + form.value + "\"/>\r\n  </Registry>\r\n";
}

}  // namespace

std::string policyCollection(const Product& product, bool narrow) {
    const std::string family = narrow ? "Software\\WOW6432Node\\Vrix" : "Software\\Vrix";
    const auto& [tree, name, key] = product.id;
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Collection clsid=\"";
    text += collectionClass + std::string("\" name=\"") + escaped(name.empty() ? key : name, "the name") + "\">\r\n";
    if (!name.empty()) text += itemOf(family, listPath(tree), textValue(name, key));
    for (const StoredKey& one : product.keys) {
        const KeyPath path = joinedPaths(rootPath(product.id), one.path);
        for (const StoredValue& value : one.values) text += itemOf(family, path, value);
    }
    return text + "</Collection>\r\n";
}

}  // namespace vrix
