#include "pages/finish/export_product.h"

#include <algorithm>

#include "common/number.h"
#include "pages/edit/edit1.h"
#include "pages/finish/settings_file.h"
#include "pages/wizard/product_options.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

void ProductExport::write(const std::string& path) {
    root_ = toolkit_.selectedProduct.ProductRegKey;
    SettingsFile file(toolkit_.platform.files, path);
    identity(file);
    header(file, "\\Dependencies");
    file.blank();
    section(file, "\\Dependencies\\IndexTable", Data::plain);
    section(file, "\\Dependencies\\Matrix", Data::plain);
    section(file, "\\Topics", Data::path);
    if (!toolkit_.selectedProduct.isDeveloper) addedTopics(file);
    statement_([&] { file.blank(); });
    options(file);
    smartFields(file);
    statement_([&] { file.close(); });
}

std::string ProductExport::read(const std::string& section, const std::string& name) const {
    return toolkit_.settings.GetSetting(application, section, name, "");
}

SettingsTable ProductExport::list(const std::string& below) const {
    return toolkit_.settings.GetAllSettings(application, root_ + below);
}

// Half of the listing's cells, which are counted in 16 bits.
int ProductExport::rowsOf(const SettingsTable& table) const {
    return halved(statement_.ignoreFailures ? cappedCount16(table.cellCount()) : count16(table.cellCount()));
}

void ProductExport::header(SettingsFile& file, const std::string& below) {
    statement_([&] { file.header(root_ + below); });
}

void ProductExport::section(SettingsFile& file, const std::string& below, Data data) {
    header(file, below);
    entries(file, list(below), data);
    file.blank();
}

void ProductExport::entries(SettingsFile& file, const SettingsTable& table, Data data) {
    const int rows = rowsOf(table);
    for (int r = 0; r < rows; ++r) {
        statement_([&] { file.entry(table.name(r), data == Data::path ? escapedPath(table.text(r)) : table.text(r)); });
    }
}

void ProductExport::identity(SettingsFile& file) {
    const SelectedProduct& selected = toolkit_.selectedProduct;
    const std::string name = toolkit_.edit1.ProductList.text();
    file.header(selected.listSection());
    // The leading separator doubles the one before it, and the registry takes both as one.
    file.entry(name, read(selected.isDeveloper ? "\\Toolkit\\Products" : "Products", name));
    file.blank();
    file.header(root_);
    // Not the "Creation Date" of a new Product: the two names are on purpose.
    file.entry("CreationDate", read(root_, "CreationDate"));
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
    const std::vector<Option>& all = toolkit_.options.all();
    const auto isPathName = [&](const std::string& name) {
        return std::any_of(all.begin(), all.end(), [&](const Option& o) { return o.isPath && o.name == name; });
    };
    SettingsTable table;
    statement_([&] { table = list("\\Options"); });
    int rows = 0;
    statement_([&] { rows = rowsOf(table); });
    for (int r = 0; r < rows; ++r) {
        if (isPathName(table.name(r))) continue;
        statement_([&] { file.entry(table.name(r), table.text(r)); });
    }
    for (const Option& option : all) {
        if (!option.isPath) continue;
        statement_([&] { file.entry(option.name, escapedPath(read(root_ + "\\Options", option.name))); });
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
