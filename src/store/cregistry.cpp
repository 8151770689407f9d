#include "store/cregistry.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "store/open_key.h"

namespace vrix {

bool isExpandable(const std::string& text) {
    const auto first = text.find('%');
    return first != std::string::npos && text.find('%', first + 2) != std::string::npos;
}

std::string textOf(Variant value) {
    if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
    if (const auto* small = std::get_if<std::int16_t>(&value)) return std::to_string(*small);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value)) return {bytes->begin(), bytes->end()};
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
    // A failed open is not looked at: the query on no key fails as well.
    static_cast<void>(registry_.openKey(ClassKey, SectionKey, access::queryValue, open.key));
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::uint32_t scratch = 0;
    const RegistryStatus status = registry_.queryValue(open.key, ValueKey, type, &scratch, size);
    if (status != RegistryStatus::success && status != RegistryStatus::moreData) return Default;
    ValueType = static_cast<std::int32_t>(type);
    switch (type) {
        case valuetype::string:
        case valuetype::multiString: return readText(open.key, size);
        case valuetype::expandString: return ExpandEnvStr(readText(open.key, size));
        case valuetype::dword: return readNumber(open.key);
        case valuetype::dwordBigEndian: return SwapEndian(readNumber(open.key));
        default: return readBytes(open.key, size);
    }
}

std::string cRegistry::readText(RegistryKey key, std::uint32_t size) {
    if (size == 0) return {};
    std::string text(size, '\0');
    std::uint32_t type = 0;
    static_cast<void>(registry_.queryValue(key, ValueKey, type, text.data(), size));
    text.pop_back();
    return text;
}

std::int32_t cRegistry::readNumber(RegistryKey key) {
    std::int32_t number = 0;
    std::uint32_t type = 0;
    std::uint32_t size = sizeof number;
    static_cast<void>(registry_.queryValue(key, ValueKey, type, &number, size));
    return number;
}

Variant cRegistry::readBytes(RegistryKey key, std::uint32_t size) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size) + 1);
    std::uint32_t type = 0;
    static_cast<void>(registry_.queryValue(key, ValueKey, type, bytes.data(), size));
    return bytes;
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

bool cRegistry::EnumerateValues(std::vector<std::string>& sKeyNames, std::int32_t& iKeyCount) {
    iKeyCount = 0;
    sKeyNames.clear();
    OpenKey open(registry_);
    std::uint32_t longest = 0;
    if (registry_.openKey(ClassKey, SectionKey, access::queryValue, open.key) != RegistryStatus::success) return true;
    if (registry_.queryInfoKey(open.key, longest) != RegistryStatus::success) return true;
    std::string name(static_cast<std::size_t>(longest) + 1, '\0');
    for (std::uint32_t index = 0;; ++index) {
        std::uint32_t length = longest + 1;
        if (registry_.enumValue(open.key, index, name.data(), length) != RegistryStatus::success) return true;
        sKeyNames.push_back(name.substr(0, length));
        ++iKeyCount;
    }
}

std::int32_t cRegistry::SwapEndian(std::int32_t value) {
    auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof value>>(value);
    std::reverse(bytes.begin(), bytes.end());
    return std::bit_cast<std::int32_t>(bytes);
}

}  // namespace vrix
