#include "store/product_export.h"

#include "common/number.h"
#include "store/cregistry_functions.h"
#include "store/option_table.h"
#include "store/settings_file.h"

namespace vrix {

void ProductExport::write(Files& files, const std::string& path, const std::string& name) {
    SettingsFile file(files, path);
    identity(file, name);
    header(file, "\\Dependencies");
    file.blank();
    section(file, "\\Dependencies\\IndexTable", Data::plain);
    section(file, "\\Dependencies\\Matrix", Data::plain);
    section(file, "\\Topics", Data::path);
    if (!product_.isDeveloper) statement_([&] { addedTopics(file); });
    statement_([&] { file.blank(); });
    options(file);
    smartFields(file);
    statement_([&] { file.close(); });
}

std::string ProductExport::read(const std::string& section, const std::string& name) const {
    return settings_.GetSetting(application, section, name, "");
}

SettingsTable ProductExport::list(const std::string& below) const {
    return settings_.GetAllSettings(application, product_.ProductRegKey + below);
}

// Half of the listing's cells, which are counted in 16 bits.
int ProductExport::rowsOf(const SettingsTable& table) const {
    return halved(statement_.ignoreFailures ? cappedCount16(table.cellCount()) : count16(table.cellCount()));
}

void ProductExport::header(SettingsFile& file, const std::string& below) {
    statement_([&] { file.header(product_.ProductRegKey + below); });
}

void ProductExport::section(SettingsFile& file, const std::string& below, Data data) {
    header(file, below);
    statement_([&] { entries(file, list(below), data); });
    file.blank();
}

void ProductExport::entries(SettingsFile& file, const SettingsTable& table, Data data) {
    const int rows = rowsOf(table);
    for (int r = 0; r < rows; ++r) {
        statement_([&] { file.entry(table.name(r), data == Data::path ? escapedPath(table.text(r)) : table.text(r)); });
    }
}

void ProductExport::identity(SettingsFile& file, const std::string& name) {
    file.header(product_.listSection());
    // The leading separator doubles the one before it, and the registry takes both as one.
    file.entry(name, read(product_.isDeveloper ? "\\Toolkit\\Products" : "Products", name));
    file.blank();
    file.header(product_.ProductRegKey);
    // Not the "Creation Date" of a new Product: the two names differ on purpose.
    file.entry("CreationDate", read(product_.ProductRegKey, "CreationDate"));
    file.blank();
}

// The test for added Topics is a statement that may fail. From it to the end of the file failures are ignored.
void ProductExport::addedTopics(SettingsFile& file) {
    const SettingsTable added = list("\\Toolkit\\Topics");
    statement_.ignoreFailures = true;
    if (!added.isTable()) return;
    header(file, "\\Toolkit");
    statement_([&] { file.blank(); });
    header(file, "\\Toolkit\\Topics");
    entries(file, added, Data::path);
}

void ProductExport::options(SettingsFile& file) {
    header(file, "\\Options");
    const auto isPathName = [](const std::string& name) {
        const OptionRow* known = findOption(name);
        return known != nullptr && known->kind == OptionKind::path;
    };
    SettingsTable table;
    statement_([&] { table = list("\\Options"); });
    int rows = 0;
    statement_([&] { rows = rowsOf(table); });
    for (int r = 0; r < rows; ++r) {
        if (isPathName(table.name(r))) continue;
        statement_([&] { file.entry(table.name(r), table.text(r)); });
    }
    for (const OptionRow& option : optionTable()) {
        if (option.kind != OptionKind::path) continue;
        statement_(
            [&] { file.entry(option.name, escapedPath(read(product_.ProductRegKey + "\\Options", option.name))); });
    }
    statement_([&] { file.blank(); });
}

void ProductExport::smartFields(SettingsFile& file) {
    statement_.ignoreFailures = true;
    header(file, "\\SmartFields");
    ignoring([&] { entries(file, list("\\SmartFields"), Data::plain); });
    statement_([&] { file.blank(); });
    statement_([&] { file.blank(); });
}

}  // namespace vrix
