#include "store/cregistry.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <optional>
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

std::int32_t SwapEndian(std::int32_t value) {
    auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof value>>(value);
    std::reverse(bytes.begin(), bytes.end());
    return std::bit_cast<std::int32_t>(bytes);
}

ValueData textData(const std::string& text) {
    return {isExpandable(text) ? valuetype::expandString : valuetype::string, text + '\0'};
}

std::optional<ValueData> bytesData(const Variant& value) {
    const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value);
    if (bytes == nullptr || bytes->size() < 2) return std::nullopt;
    return ValueData{valuetype::binary, {bytes->begin(), bytes->end() - 2}};
}

std::optional<ValueData> numberData(const Variant& value) {
    const auto* small = std::get_if<std::int16_t>(&value);
    const auto* large = std::get_if<std::int32_t>(&value);
    if (small == nullptr && large == nullptr) return std::nullopt;
    const std::int32_t number = small != nullptr ? *small : *large;
    ValueData data{valuetype::dword, std::string(sizeof number, '\0')};
    std::memcpy(data.bytes.data(), &number, sizeof number);
    return data;
}

RegistryStatus nothing(RegistryKey /*key*/) { return RegistryStatus::success; }

}  // namespace

std::string textOf(Variant value) {
    if (auto* text = std::get_if<std::string>(&value)) return wholeCharacters(std::move(*text));
    if (const auto* small = std::get_if<std::int16_t>(&value)) return std::to_string(*small);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value))
        return wholeCharacters({bytes->begin(), bytes->end()});
    return {};
}

// ---- Keys ----

template <class Call>
RegistryStatus cRegistry::onKey(std::uint32_t rights, const Call& call, IfMissing ifMissing) {
    const auto kept = std::find_if(kept_.begin(), kept_.end(), [&](const Kept& one) {
        return one.hive == ClassKey && one.rights == rights && one.path == SectionKey;
    });
    if (kept != kept_.end()) {
        const RegistryStatus status = call(kept->key);
        if (status != RegistryStatus::keyDeleted) return status;
        registry_.closeKey(kept->key);
        kept_.erase(kept);
    }
    OpenKey opened(registry_);
    RegistryStatus status = ifMissing == IfMissing::make ? registry_.createKey(ClassKey, SectionKey, rights, opened.key)
                                                         : registry_.openKey(ClassKey, SectionKey, rights, opened.key);
    if (status == RegistryStatus::success) status = call(opened.key);
    if (runs_ > 0 && opened.key != 0) kept_.push_back({ClassKey, SectionKey, rights, std::exchange(opened.key, 0)});
    return status;
}

void cRegistry::letGo() {
    for (const Kept& one : kept_) registry_.closeKey(one.key);
    kept_.clear();
}

bool cRegistry::KeyExists() {
    letGo();
    return onKey(access::queryValue, nothing) == RegistryStatus::success;
}

bool cRegistry::CreateKey() {
    letGo();
    return onKey(access::change, nothing, IfMissing::make) == RegistryStatus::success;
}

bool cRegistry::DeleteKey() {
    letGo();
    return registry_.deleteKey(ClassKey, SectionKey) == RegistryStatus::success;
}

bool cRegistry::EnumerateSections(std::vector<std::string>& sSect, std::int32_t& iSectCount) {
    sSect.clear();
    onKey(access::enumerateSubKeys, [&](RegistryKey key) { return registry_.listKeys(key, sSect); });
    // The buffer holds 254 bytes. A longer name ends the list.
    constexpr std::size_t room = 255;
    const auto isTooLong = [](const std::string& name) { return name.size() >= room; };
    sSect.erase(std::find_if(sSect.begin(), sSect.end(), isTooLong), sSect.end());
    iSectCount = static_cast<std::int32_t>(sSect.size());
    return true;
}

// ---- Values ----

bool cRegistry::DeleteValue() {
    return onKey(access::change, [&](RegistryKey key) { return registry_.deleteValue(key, ValueKey); }) ==
           RegistryStatus::success;
}

Variant cRegistry::Value() {
    ValueData value;
    const auto query = [&](RegistryKey key) { return registry_.queryValue(key, ValueKey, value); };
    if (onKey(access::queryValue, query) != RegistryStatus::success) return Default;
    ValueType = static_cast<std::int32_t>(value.type);
    return asRead(std::move(value));
}

Variant cRegistry::asRead(ValueData value) {
    switch (value.type) {
        case valuetype::string:
        case valuetype::multiString: return textIn(std::move(value.bytes));
        case valuetype::expandString: return registry_.expandEnvironment(textIn(std::move(value.bytes)));
        case valuetype::dword: return numberIn(value.bytes);
        case valuetype::dwordBigEndian: return SwapEndian(numberIn(value.bytes));
        default: return arrayIn(value.bytes);
    }
}

void cRegistry::Value(Variant value) {
    const std::optional<ValueData> data = asWritten(value);
    const auto write = [&](RegistryKey key) {
        return data ? registry_.setValue(key, ValueKey, data->type, data->bytes) : RegistryStatus::success;
    };
    onKey(access::change, write, IfMissing::make);
}

std::optional<ValueData> cRegistry::asWritten(const Variant& value) const {
    switch (static_cast<std::uint32_t>(ValueType)) {
        case valuetype::string:
        case valuetype::expandString: return textData(textOf(value));
        case valuetype::binary: return bytesData(value);
        case valuetype::dword:
        case valuetype::dwordBigEndian: return numberData(value);
        default: return std::nullopt;
    }
}

bool cRegistry::EnumerateValues(std::vector<std::string>& sKeyNames, std::int32_t& iKeyCount) {
    sKeyNames.clear();
    // A failure looks like the end of the list.
    onKey(access::queryValue, [&](RegistryKey key) { return registry_.listValues(key, sKeyNames); });
    iKeyCount = static_cast<std::int32_t>(sKeyNames.size());
    return true;
}

}  // namespace vrix
