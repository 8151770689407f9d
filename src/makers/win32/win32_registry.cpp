#include "makers/win32/win32_registry.h"

#include <windows.h>

#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

RegistryStatus status(LSTATUS code) { return static_cast<RegistryStatus>(code); }

// The access right that selects a view. A key opened with it is in that view, but calls below it must pass it again.
DWORD viewRight(RegistryView view) {
    switch (view) {
        case RegistryView::own: return 0;
        case RegistryView::bits64: return KEY_WOW64_64KEY;
        case RegistryView::bits32: return KEY_WOW64_32KEY;
    }
    return 0;
}

// The narrow calls: texts are bytes of the system's code page.
struct Narrow {
    using Text = std::string;
    static constexpr auto open = RegOpenKeyExA;
    static constexpr auto create = RegCreateKeyExA;
    static constexpr auto query = RegQueryValueExA;
    static constexpr auto set = RegSetValueExA;
    static constexpr auto deleteValue = RegDeleteValueA;
    static constexpr auto info = RegQueryInfoKeyA;
    static constexpr auto enumKey = RegEnumKeyA;
    static constexpr auto enumValue = RegEnumValueA;
    static LSTATUS deleteKey(HKEY parent, const char* path, DWORD) { return RegDeleteKeyA(parent, path); }

    static constexpr std::size_t mostUnits = 4;  // of a character, in any code page
    static const Text& in(const std::string& text) { return text; }
    static const Text& out(const Text& text) { return text; }
    static std::wstring toWide(const std::string& text) { return wide(text); }
    static std::string fromWide(const std::wstring& text) { return narrow(text); }
};

// The wide calls: texts are converted from and to UTF-8.
struct Wide {
    using Text = std::wstring;
    static constexpr auto open = RegOpenKeyExW;
    static constexpr auto create = RegCreateKeyExW;
    static constexpr auto query = RegQueryValueExW;
    static constexpr auto set = RegSetValueExW;
    static constexpr auto deleteValue = RegDeleteValueW;
    static constexpr auto info = RegQueryInfoKeyW;
    static constexpr auto enumKey = RegEnumKeyW;
    static constexpr auto enumValue = RegEnumValueW;
    static LSTATUS deleteKey(HKEY parent, const wchar_t* path, DWORD view) {
        return RegDeleteKeyExW(parent, path, view, 0);
    }

    static constexpr std::size_t mostUnits = 1;
    static Text in(const std::string& text) { return utf8ToWide(text); }
    static std::string out(const Text& text) { return wideToUtf8(text); }
    static std::wstring toWide(const std::string& text) { return utf8ToWide(text); }
    static std::string fromWide(const std::wstring& text) { return wideToUtf8(text); }
};

template <class Calls>
class MachineRegistry final : public Registry {
    using Text = typename Calls::Text;
    static constexpr std::size_t unit = sizeof(typename Text::value_type);

public:
    explicit MachineRegistry(RegistryView view) : view_(viewRight(view)) {}

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override {
        HKEY handle = nullptr;
        const LSTATUS code = Calls::open(native(parent), Calls::in(path).c_str(), 0, rights | view_, &handle);
        return opened(code, handle, key);
    }

    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override {
        HKEY handle = nullptr;
        Text noClass;
        SECURITY_ATTRIBUTES security{};
        security.nLength = sizeof security;
        const LSTATUS code = Calls::create(native(parent), Calls::in(path).c_str(), 0, noClass.data(), 0,
                                           rights | view_, &security, &handle, nullptr);
        return opened(code, handle, key);
    }

    RegistryStatus closeKey(RegistryKey key) override { return status(RegCloseKey(native(key))); }

    RegistryStatus queryValue(RegistryKey key, const std::string& name, ValueData& value) override {
        const Text& known = Calls::in(name);
        std::string bytes(1'024, '\0');
        DWORD type = 0;
        auto size = static_cast<DWORD>(bytes.size());
        const auto query = [&](DWORD& found) {
            return Calls::query(native(key), known.c_str(), nullptr, &found, reinterpret_cast<BYTE*>(bytes.data()),
                                &size);
        };
        const LSTATUS code = query(type);
        if (code != ERROR_SUCCESS && code != ERROR_MORE_DATA) return status(code);
        bytes.resize(size);
        if (DWORD again = 0; code == ERROR_MORE_DATA && query(again) != ERROR_SUCCESS) bytes.assign(bytes.size(), '\0');
        value = {type, dataOf(type, bytes)};
        return RegistryStatus::success;
    }

    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                            std::string_view bytes) override {
        if (!valuetype::isText(type)) return set(key, name, type, bytes.data(), bytes.size());
        Text text = Calls::in(std::string(bytes));
        if (!text.empty() && text.back() != 0) text.push_back(0);
        return set(key, name, type, text.data(), text.size() * unit);
    }

    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override {
        return status(Calls::deleteKey(native(parent), Calls::in(path).c_str(), view_));
    }

    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override {
        return status(Calls::deleteValue(native(key), Calls::in(name).c_str()));
    }

    RegistryStatus listKeys(RegistryKey key, std::vector<std::string>& names) override {
        names.clear();
        constexpr std::size_t longest = 256;  // in characters, by some platforms
        Text room(longest * Calls::mostUnits + 1, 0);
        for (DWORD index = 0;; ++index) {
            const LSTATUS code = Calls::enumKey(native(key), index, room.data(), static_cast<DWORD>(room.size()));
            if (code != ERROR_SUCCESS) return atEnd(code);
            names.push_back(Calls::out(room.c_str()));
        }
    }

    RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                              std::vector<ValueData>* values) override {
        names.clear();
        if (values != nullptr) values->clear();
        Text noClass;
        DWORD classLength = 0;
        DWORD longest = 0;
        LSTATUS code = Calls::info(native(key), noClass.data(), &classLength, nullptr, nullptr, nullptr, nullptr,
                                   nullptr, &longest, nullptr, nullptr, nullptr);
        Text room(longest * Calls::mostUnits + 1, 0);
        std::string data(values == nullptr ? 0 : 1'024, '\0');
        for (DWORD index = 0; code == ERROR_SUCCESS;) {
            auto length = static_cast<DWORD>(room.size());
            auto size = static_cast<DWORD>(data.size());
            DWORD type = 0;
            auto* const bytes = reinterpret_cast<BYTE*>(data.data());
            code = values == nullptr
                       ? Calls::enumValue(native(key), index, room.data(), &length, nullptr, nullptr, nullptr, nullptr)
                       : Calls::enumValue(native(key), index, room.data(), &length, nullptr, &type, bytes, &size);
            if (code == ERROR_MORE_DATA && size > data.size()) {
                data.resize(size);
                code = ERROR_SUCCESS;
            } else if (code == ERROR_SUCCESS) {
                names.push_back(Calls::out(room.substr(0, length)));
                if (values != nullptr) values->push_back({type, dataOf(type, std::string_view(data).substr(0, size))});
                ++index;
            }
        }
        return atEnd(code);
    }

    std::string expandEnvironment(const std::string& text) override {
        constexpr std::size_t longestText = 32'766;  // the platform loses longer ones
        const std::wstring plain = Calls::toWide(text.c_str());
        std::wstring expanded;
        DWORD needed = plain.size() > longestText ? 0 : ExpandEnvironmentStringsW(plain.c_str(), nullptr, 0);
        while (needed > expanded.size()) {
            expanded.assign(needed, L'\0');
            needed = ExpandEnvironmentStringsW(plain.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
        }
        return needed == 0 ? text.c_str() : Calls::fromWide(expanded.c_str());
    }

private:
    // Sets the key that a call has opened, or 0 if the call was refused.
    static RegistryStatus opened(LSTATUS code, HKEY handle, RegistryKey& key) {
        key = code == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(handle) : 0;
        return status(code);
    }

    static RegistryStatus atEnd(LSTATUS code) { return status(code == ERROR_NO_MORE_ITEMS ? ERROR_SUCCESS : code); }

    RegistryStatus set(RegistryKey key, const std::string& name, DWORD type, const void* data, std::size_t size) {
        return status(Calls::set(native(key), Calls::in(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                                 static_cast<DWORD>(size)));
    }

    static std::string dataOf(DWORD type, std::string_view bytes) {
        if (unit == 1 || !valuetype::isText(type)) return std::string(bytes);
        Text text(bytes.size() / unit, 0);
        bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * unit);
        return Calls::out(text);
    }

    DWORD view_;
};

}  // namespace

std::unique_ptr<Registry> narrowRegistry() { return std::make_unique<MachineRegistry<Narrow>>(RegistryView::own); }

std::unique_ptr<Registry> wideRegistry(RegistryView view) { return std::make_unique<MachineRegistry<Wide>>(view); }

}  // namespace vrix
