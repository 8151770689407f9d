#pragma once

#include "platform/registry.h"

struct HKEY__;

namespace vrix {

// The registry of the machine, by the platform's narrow calls. It differs from them in this:
// - A null pointer with size 1 is written as an empty text. With a larger size it is refused; the platform would fault.
// - A listing that asks for data uses the wide call, which gives name and data at once. It hands the data on only if
//   the system's code page has all characters of name and text, so that a narrow read by this name gives the same.
// - A text of more than 32,766 characters is not expanded, and an expansion ends there: the platform has no more room.
class Win32Registry final : public Registry {
public:
    explicit Win32Registry(RegistryView view = RegistryView::own) : view_(view) {}

    RegistryStatus openKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                           RegistryKey& key) override;
    RegistryStatus createKey(RegistryKey parent, const std::string& path, std::uint32_t rights,
                             RegistryKey& key) override;
    RegistryStatus closeKey(RegistryKey key) override;
    RegistryStatus queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                              std::uint32_t& size) override;
    RegistryStatus setValue(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                            std::uint32_t size) override;
    RegistryStatus deleteKey(RegistryKey parent, const std::string& path) override;
    RegistryStatus deleteValue(RegistryKey key, const std::string& name) override;
    RegistryStatus enumKey(RegistryKey key, std::uint32_t index, char* name, std::uint32_t capacity) override;
    RegistryStatus enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t& length,
                             std::optional<ValueData>* data = nullptr) override;
    RegistryStatus queryInfoKey(RegistryKey key, std::uint32_t& longestValueName) override;
    std::string expandEnvironment(const std::string& text) override;

private:
    RegistryView view_;
};

}  // namespace vrix
