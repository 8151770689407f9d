#pragma once

#include <string>

#include "common/runtime_failure.h"
#include "platform/files.h"
#include "store/settings_table.h"

namespace vrix {

class cRegistryFunctions;
class SettingsFile;

// Writes the settings file of a stored Product.
class ProductExport {
public:
    // `root` is the Product's section; a Product of the develop tree has it below "Toolkit".
    ProductExport(cRegistryFunctions& settings, const std::string& root, bool isDeveloper)
        : settings_(settings), root_(root), isDeveloper_(isDeveloper) {}

    // From the start all failures are ignored: a section without values stays empty.
    ProductExport& ignoringFailures() {
        statement_.ignoreFailures = true;
        return *this;
    }

    // `name` is the Product's in its list. Failures as in Files, and 13 or 9 for a listing without values; the file is
    // left as far as written. On a Product of the installed tree failures are ignored, statement by statement, from its
    // added Topics to the end; on another one, from its SmartFields.
    void write(Files& files, const std::string& path, const std::string& name);

private:
    enum class Data { plain, path };

    std::string read(const std::string& section, const std::string& name) const;
    SettingsTable list(const std::string& below) const;
    int rowsOf(const SettingsTable& table) const;
    void header(SettingsFile& file, const std::string& below);
    void section(SettingsFile& file, const std::string& below, Data data);
    void entries(SettingsFile& file, const SettingsTable& table, Data data);
    void identity(SettingsFile& file, const std::string& name);
    void addedTopics(SettingsFile& file);
    void options(SettingsFile& file);
    void smartFields(SettingsFile& file);

    cRegistryFunctions& settings_;
    std::string root_;
    bool isDeveloper_;
    StatementRunner statement_;
};

}  // namespace vrix
