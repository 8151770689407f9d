#pragma once

#include <string>

#include "common/runtime_failure.h"
#include "platform/files.h"
#include "store/selected_product.h"
#include "store/settings_table.h"

namespace vrix {

class cRegistryFunctions;
class SettingsFile;

// Writes the settings file of a stored Product.
class ProductExport {
public:
    // `ignoresFailures`: from the start each statement that fails is skipped, and a section without values stays empty.
    ProductExport(cRegistryFunctions& settings, const SelectedProduct& product, bool ignoresFailures = false)
        : settings_(settings), product_(product), statement_{ignoresFailures} {}

    // `name` is the Product's in its list. Failures as in Files, and 13 or 9 for a listing without values; what was
    // written until then stays in the file. From some point to the end each statement that fails is skipped: in the
    // installed tree from the added Topics on, in the develop tree from the SmartFields on.
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
    SelectedProduct product_;
    StatementRunner statement_;
};

}  // namespace vrix
