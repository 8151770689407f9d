#include "product/json/json_texts.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "product/compare.h"
#include "product/settings_lines.h"

namespace vrix {

namespace {

std::string unhex(const Json& text, const std::string& place) {
    const std::string digits = text.is_string() ? text.get<std::string>() : "?";
    std::string bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        unsigned byte = 0;
        const char* end = digits.data() + std::min(at + 2, digits.size());
        const auto [stop, error] = std::from_chars(digits.data() + at, end, byte, 16);
        if (digits.size() % 2 != 0 || error != std::errc() || stop != end) {
            throw Malformed(place, "these are no bytes as pairs of hexadecimal digits");
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
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
    throw Malformed(place, "this is no type of a value");
}

}  // namespace

Json JsonTexts::text(const std::string& bytes) const {
    if (const auto utf8 = exactUtf8(encoding_, bytes)) return *utf8;
    return {{"bytes", hexDigits(bytes)}};
}

std::string JsonTexts::fromUtf8(const std::string& text, const std::string& place) const {
    const auto bytes = encoding_.fromUtf8(text);
    if (!bytes) throw Malformed(place, "the code page of the store lacks a character");
    if (bytes->find('\0') != std::string::npos) throw Malformed(place, "there is a zero byte");
    return *bytes;
}

std::string JsonTexts::bytesOf(const Json& text, const std::string& place) const {
    if (text.is_string()) return fromUtf8(text.get<std::string>(), place);
    expectMembers(text, {"bytes"}, place);
    const std::string bytes = unhex(memberOf(text, "bytes", place), place + "/bytes");
    if (bytes.find('\0') != std::string::npos) throw Malformed(place, "there is a zero byte");
    return bytes;
}

Json JsonTexts::content(const StoredValue& value) const {
    const bool isText = value.type == valuetype::string || value.type == valuetype::expandString;
    const std::string bytes = textOf(value);
    if (isText && value.data == bytes + '\0' && bytes.find('\0') == std::string::npos) {
        if (Json string = text(bytes); string.is_string()) {
            return isPlainText(value) ? string : Json{{"type", typeOf(value.type)}, {"text", string}};
        }
    }
    return {{"type", typeOf(value.type)}, {"bytes", hexDigits(value.data)}};
}

StoredValue JsonTexts::valueOf(std::string name, const Json& content, const std::string& place) const {
    if (content.is_string()) return textValue(name, fromUtf8(content.get<std::string>(), place));
    expectMembers(content, {"type", "text", "bytes"}, place);
    const std::uint32_t type = typeNumber(memberOf(content, "type", place), place + "/type");
    if (content.contains("text") == content.contains("bytes")) {
        throw Malformed(place, "one of \"text\" and \"bytes\" should stand here");
    }
    if (content.contains("bytes")) return storable({std::move(name), type, unhex(content["bytes"], place + "/bytes")});
    if ((type != valuetype::string && type != valuetype::expandString) || !content["text"].is_string()) {
        throw Malformed(place + "/text", "only a text of type REG_SZ or REG_EXPAND_SZ can stand here");
    }
    return {std::move(name), type, fromUtf8(content["text"].get<std::string>(), place + "/text") + '\0'};
}

void expectMembers(const Json& object, const std::vector<std::string_view>& known, const std::string& place) {
    if (!object.is_object()) throw Malformed(place, "an object should stand here");
    for (const auto& [name, member] : object.items()) {
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            throw Malformed(place + '/' + name, "this member is not known");
        }
    }
}

const Json& memberOf(const Json& object, const char* name, const std::string& place) {
    const auto found = object.find(name);
    if (found == object.end()) throw Malformed(place, "\"" + std::string(name) + "\" is missing");
    return *found;
}

std::size_t countOf(const Json& number, const std::string& place) {
    if (!number.is_number_integer() || number < 0) throw Malformed(place, "a whole number from 0 should stand here");
    return number.get<std::size_t>();
}

const Json& arrayOf(const Json& array, const std::string& place) {
    if (!array.is_array()) throw Malformed(place, "an array should stand here");
    return array;
}

std::optional<std::int32_t> plainNumber(const std::string& text, std::int32_t least) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < least || std::to_string(number) != text) return std::nullopt;
    return number;
}

}  // namespace vrix
