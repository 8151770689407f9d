#include "product/json/json_texts.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "common/utf8.h"
#include "product/compare.h"
#include "product/encoded_text.h"
#include "product/settings_lines.h"

namespace vrix {

namespace {

std::string unhex(const Json& text, const std::string& place) {
    const std::string digits = text.is_string() ? text.get<std::string>() : "?";
    std::string bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        const auto byte = hexNumber(std::string_view(digits).substr(at, 2), 2);
        if (!byte || digits.size() % 2 != 0) throw malformed(place, "these are no pairs of hexadecimal digits");
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

// Text as UTF-16 code units, four hexadecimal digits each.
std::string digitsOf(const std::string& text) {
    std::string bytes;
    for (const char16_t unit : toUtf16(text)) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return hexDigits(bytes);
}

std::string unitsOf(const Json& digits, const std::string& place) {
    const auto text = fromUtf16Bytes(unhex(digits, place), false);
    if (!text) throw malformed(place, "these are no units of four hexadecimal digits");
    return *text;
}

std::string withoutZero(std::string text, const std::string& place) {
    if (text.find('\0') != std::string::npos) throw malformed(place, "there is a zero character");
    return text;
}

Json typeOf(std::uint32_t type) {
    const std::string name = typeName(type);
    return name.starts_with("REG_") ? Json(name) : Json(type);
}

std::uint32_t typeNumber(const Json& type, const std::string& place) {
    if (type.is_number_unsigned() && type.get<std::uint64_t>() <= UINT32_MAX) return type.get<std::uint32_t>();
    constexpr std::uint32_t mostNamed = 64;
    for (std::uint32_t number = 0; type.is_string() && number < mostNamed; ++number) {
        if (typeName(number) == type.get<std::string>()) return number;
    }
    throw malformed(place, "this is no type of a value");
}

}  // namespace

Json jsonName(const std::string& name) {
    if (isWhole(name)) return name;
    return {{"utf16", digitsOf(name)}};
}

std::string readName(const Json& json, const std::string& place) {
    if (json.is_string()) return withoutZero(json.get<std::string>(), place);
    expectMembers(json, {"utf16"}, place);
    return withoutZero(unitsOf(memberOf(json, "utf16", place), place + "/utf16"), place);
}

Json jsonContent(const StoredValue& value) {
    const Json type = typeOf(value.type);
    if (!valuetype::isText(value.type)) return {{"type", type}, {"bytes", hexDigits(value.data)}};
    if (!value.data.ends_with('\0') || !isWhole(value.data)) return {{"type", type}, {"utf16", digitsOf(value.data)}};
    const std::string text = textOf(value);
    return isPlainText(value) ? Json(text) : Json{{"type", type}, {"text", text}};
}

StoredValue readContent(std::string name, const Json& json, const std::string& place) {
    if (json.is_string()) return textValue(name, withoutZero(json.get<std::string>(), place));
    expectMembers(json, {"type", "text", "utf16", "bytes"}, place);
    StoredValue value{std::move(name), typeNumber(memberOf(json, "type", place), place + "/type"), {}};
    const char* form = !valuetype::isText(value.type) ? "bytes" : json.contains("text") ? "text" : "utf16";
    const Json& data = memberOf(json, form, place);
    const std::string here = place + '/' + form;
    if (json.size() != 2) throw malformed(place, "beside \"type\" only \"" + std::string(form) + "\" can stand here");
    if (form == std::string_view("bytes")) value.data = unhex(data, here);
    if (form == std::string_view("utf16")) value.data = unitsOf(data, here);
    if (form == std::string_view("text")) {
        if (!data.is_string()) throw malformed(here, "a text should stand here");
        value.data = data.get<std::string>() + '\0';
    }
    return storable(std::move(value));
}

void expectMembers(const Json& object, const std::vector<std::string_view>& known, const std::string& place) {
    if (!object.is_object()) throw malformed(place, "an object should stand here");
    for (const auto& [name, member] : object.items()) {
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            throw malformed(place + '/' + name, "this member is not known");
        }
    }
}

const Json& memberOf(const Json& object, const char* name, const std::string& place) {
    const auto found = object.find(name);
    if (found == object.end()) throw malformed(place, "\"" + std::string(name) + "\" is missing");
    return *found;
}

const Json& arrayOf(const Json& array, const std::string& place) {
    if (!array.is_array()) throw malformed(place, "an array should stand here");
    return array;
}

std::optional<std::int32_t> plainNumber(const std::string& text, std::int32_t least) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < least || std::to_string(number) != text) return std::nullopt;
    return number;
}

}  // namespace vrix
