#include "store/cregistry.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

#include "common/code_page.h"
#include "store/open_key.h"

namespace vrix {

bool isExpandable(const std::string& text) {
    const auto first = text.find('%');
    return first != std::string::npos && text.find('%', first + 2) != std::string::npos;
}

namespace {

// The text that data holds: all but its last byte, the terminator.
std::string textIn(std::string bytes) {
    if (!bytes.empty()) bytes.pop_back();
    return bytes;
}

// The number that data holds; 0 where it is longer than a number.
std::int32_t numberIn(const std::string& bytes) {
    std::int32_t number = 0;
    if (bytes.size() <= sizeof number) std::memcpy(&number, bytes.data(), bytes.size());
    return number;
}

// The bytes of the data, and one element more.
std::vector<std::uint8_t> arrayIn(const std::string& bytes) {
    std::vector<std::uint8_t> array(bytes.begin(), bytes.end());
    array.push_back(0);
    return array;
}

}  // namespace

std::string textOf(Variant value) {
    if (auto* text = std::get_if<std::string>(&value)) return wholeCharacters(std::move(*text));
    if (const auto* small = std::get_if<std::int16_t>(&value)) return std::to_string(*small);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value))
        return wholeCharacters({bytes->begin(), bytes->end()});
    return {};
}

bool cRegistry::DeleteKey() { return registry_.deleteKey(ClassKey, SectionKey) == RegistryStatus::success; }

bool cRegistry::DeleteValue() {
    OpenKey open(registry_);
    if (registry_.openKey(ClassKey, SectionKey, access::change, open.key) != RegistryStatus::success) return false;
    return registry_.deleteValue(open.key, ValueKey) == RegistryStatus::success;
}

Variant cRegistry::Value() {
    OpenKey open(registry_);
    // The status is not tested: without a key the query fails too.
    static_cast<void>(registry_.openKey(ClassKey, SectionKey, access::queryValue, open.key));
    ValueData value;
    std::uint32_t size = 0;
    std::uint32_t scratch = 0;
    const RegistryStatus status = registry_.queryValue(open.key, ValueKey, value.type, &scratch, size);
    if (status != RegistryStatus::success && status != RegistryStatus::moreData) return Default;
    ValueType = static_cast<std::int32_t>(value.type);
    value.bytes.resize(size);
    std::uint32_t type = 0;
    // Where this one fails the bytes stay zero.
    if (size > 0) static_cast<void>(registry_.queryValue(open.key, ValueKey, type, value.bytes.data(), size));
    return asRead(std::move(value));
}

Variant cRegistry::asRead(ValueData value) {
    switch (value.type) {
        case valuetype::string:
        case valuetype::multiString: return textIn(std::move(value.bytes));
        case valuetype::expandString: return ExpandEnvStr(textIn(std::move(value.bytes)));
        case valuetype::dword: return numberIn(value.bytes);
        case valuetype::dwordBigEndian: return SwapEndian(numberIn(value.bytes));
        default: return arrayIn(value.bytes);
    }
}

void cRegistry::Value(Variant value) {
    OpenKey open(registry_);
    if (registry_.createKey(ClassKey, SectionKey, access::change, open.key) != RegistryStatus::success) return;
    switch (static_cast<std::uint32_t>(ValueType)) {
        case valuetype::string:
        case valuetype::expandString: return writeText(open.key, textOf(std::move(value)));
        case valuetype::binary: return writeBytes(open.key, value);
        case valuetype::dword:
        case valuetype::dwordBigEndian: return writeNumber(open.key, value);
        default: return;
    }
}

void cRegistry::SetText(const std::string& text) {
    OpenKey open(registry_);
    if (registry_.createKey(ClassKey, SectionKey, access::change, open.key) == RegistryStatus::success) {
        writeText(open.key, text);
    }
}

void cRegistry::writeText(RegistryKey key, const std::string& text) {
    const std::uint32_t type = isExpandable(text) ? valuetype::expandString : valuetype::string;
    write(key, type, text.empty() ? nullptr : text.c_str(), static_cast<std::uint32_t>(text.size() + 1));
}

void cRegistry::writeBytes(RegistryKey key, const Variant& value) {
    const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value);
    if (bytes == nullptr || bytes->size() < 2) return;
    write(key, valuetype::binary, bytes->data(), static_cast<std::uint32_t>(bytes->size() - 2));
}

void cRegistry::writeNumber(RegistryKey key, const Variant& value) {
    const auto* small = std::get_if<std::int16_t>(&value);
    const auto* large = std::get_if<std::int32_t>(&value);
    if (small == nullptr && large == nullptr) return;
    const std::int32_t number = small != nullptr ? *small : *large;
    write(key, valuetype::dword, &number, sizeof number);
}

void cRegistry::write(RegistryKey key, std::uint32_t type, const void* data, std::uint32_t size) {
    static_cast<void>(registry_.setValue(key, ValueKey, type, data, size));
}

bool cRegistry::EnumerateValues(std::vector<std::string>& sKeyNames, std::int32_t& iKeyCount,
                                std::vector<Variant>* vValues) {
    iKeyCount = 0;
    sKeyNames.clear();
    if (vValues != nullptr) vValues->clear();
    OpenKey open(registry_);
    std::uint32_t longest = 0;
    if (registry_.openKey(ClassKey, SectionKey, access::queryValue, open.key) != RegistryStatus::success) return true;
    if (registry_.queryInfoKey(open.key, longest) != RegistryStatus::success) return true;
    constexpr std::size_t characterSize = 4;  // in bytes, at most, in any code page
    std::string room(longest * characterSize + 1, '\0');
    std::optional<ValueData> data;
    std::uint32_t length = 0;
    while (nameAt(open.key, sKeyNames.size(), room, length, vValues == nullptr ? nullptr : &data)) {
        sKeyNames.push_back(room.substr(0, length));
        if (vValues != nullptr) vValues->push_back(data ? asRead(*std::move(data)) : Variant());
        ++iKeyCount;
    }
    return true;
}

// Gives the name of a value in the room, which grows: another program may have written a longer name since the longest
// was asked for.
bool cRegistry::nameAt(RegistryKey key, std::size_t index, std::string& room, std::uint32_t& length,
                       std::optional<ValueData>* data) {
    constexpr std::size_t mostRoom = 1 << 17;  // more than the longest name that can be
    for (;; room.resize(2 * room.size())) {
        length = static_cast<std::uint32_t>(room.size());
        const RegistryStatus status =
            registry_.enumValue(key, static_cast<std::uint32_t>(index), room.data(), length, data);
        if (status != RegistryStatus::moreData || room.size() > mostRoom) return status == RegistryStatus::success;
    }
}

std::int32_t cRegistry::SwapEndian(std::int32_t value) {
    auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof value>>(value);
    std::reverse(bytes.begin(), bytes.end());
    return std::bit_cast<std::int32_t>(bytes);
}

}  // namespace vrix
