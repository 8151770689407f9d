#pragma once

#include <string>

#include "common/runtime_failure.h"
#include "shell/toolkit.h"
#include "store/settings_table.h"

namespace vrix {

class SettingsFile;

// Writes the settings file of the Product selected for editing, from the store.
class ProductExport {
public:
    explicit ProductExport(const Toolkit& toolkit) : toolkit_(toolkit) {}

    // Failures as in Files, and 13 or 9 for a listing without values; what was written until then stays in the file.
    // From some point to the end each statement that fails is skipped: in the installed tree from the added Topics on,
    // in the develop tree from the SmartFields on.
    void write(const std::string& path);

private:
    enum class Data { plain, path };

    std::string read(const std::string& section, const std::string& name) const;
    SettingsTable list(const std::string& below) const;
    int rowsOf(const SettingsTable& table) const;
    void header(SettingsFile& file, const std::string& below);
    void section(SettingsFile& file, const std::string& below, Data data);
    void entries(SettingsFile& file, const SettingsTable& table, Data data);
    void identity(SettingsFile& file);
    void addedTopics(SettingsFile& file);
    void options(SettingsFile& file);
    void smartFields(SettingsFile& file);

    const Toolkit& toolkit_;
    std::string root_;
    StatementRunner statement_;
};

}  // namespace vrix
