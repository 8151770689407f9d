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
    if (!isDeveloper_) statement([&] { addedTopics(file); });
    statement([&] { file.blank(); });
    options(file);
    smartFields(file);
    statement([&] { file.close(); });
}

std::string ProductExport::read(const std::string& section, const std::string& name) const {
    return settings_.GetSetting(application, section, name, "");
}

SettingsTable ProductExport::list(const std::string& below) const {
    return settings_.GetAllSettings(application, root_ + below);
}

// A listing's rows are counted by their cells, in 16 bits.
int ProductExport::rowsOf(const SettingsTable& table) const {
    return halved(ignoreFailures_ ? cappedCount16(table.cellCount()) : count16(table.cellCount()));
}

void ProductExport::header(SettingsFile& file, const std::string& below) {
    statement([&] { file.header(root_ + below); });
}

void ProductExport::section(SettingsFile& file, const std::string& below, Data data) {
    header(file, below);
    statement([&] { entries(file, list(below), data); });
    file.blank();
}

void ProductExport::entries(SettingsFile& file, const SettingsTable& table, Data data) {
    const int rows = rowsOf(table);
    for (int r = 0; r < rows; ++r) {
        statement([&] { file.entry(table.name(r), data == Data::path ? escapedPath(table.text(r)) : table.text(r)); });
    }
}

void ProductExport::identity(SettingsFile& file, const std::string& name) {
    file.header(isDeveloper_ ? "Toolkit\\Products" : "Products");
    // The develop tree's section is asked for with a leading separator, which counts for nothing.
    file.entry(name, read(isDeveloper_ ? "\\Toolkit\\Products" : "Products", name));
    file.blank();
    file.header(root_);
    file.entry("CreationDate", read(root_, "CreationDate"));
    file.blank();
}

// Whether there are added Topics shows by a failure, and the trap taken up for it stays to the end of the file.
void ProductExport::addedTopics(SettingsFile& file) {
    const SettingsTable added = list("\\Toolkit\\Topics");
    ignoreFailures_ = true;
    if (!added.isTable()) return;
    header(file, "\\Toolkit");
    statement([&] { file.blank(); });
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
    statement([&] { table = list("\\Options"); });
    int rows = 0;
    statement([&] { rows = rowsOf(table); });
    for (int r = 0; r < rows; ++r) {
        if (isPathName(table.name(r))) continue;
        statement([&] { file.entry(table.name(r), table.text(r)); });
    }
    for (const OptionRow& option : optionTable()) {
        if (option.kind != OptionKind::path) continue;
        statement([&] { file.entry(option.name, escapedPath(read(root_ + "\\Options", option.name))); });
    }
    statement([&] { file.blank(); });
}

void ProductExport::smartFields(SettingsFile& file) {
    ignoreFailures_ = true;
    header(file, "\\SmartFields");
    ignoring([&] { entries(file, list("\\SmartFields"), Data::plain); });
    statement([&] { file.blank(); });
    statement([&] { file.blank(); });
}

}  // namespace vrix
