#include "pages/finish/new_product.h"

#include <algorithm>

#include "forms/control.h"
#include "pages/smartfields/create19.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/wizard/create2.h"
#include "pages/wizard/product_options.h"
#include "store/cregistry_functions.h"
#include "store/settings_file.h"

namespace vrix {

namespace {

std::string rootOf(const Toolkit& toolkit) { return "Toolkit\\" + toolkit.create2.ProductKey.text(); }

void saveTopics(const Toolkit& toolkit) {
    const Create8& topics = toolkit.create8;
    const std::string root = rootOf(toolkit);
    const std::string paths = root + "\\Topics";
    const std::string indexTable = root + "\\Dependencies\\IndexTable";
    const std::string matrix = root + "\\Dependencies\\Matrix";
    const auto save = [&](const std::string& section, const std::string& name, const std::string& data) {
        toolkit.settings.SaveSetting(application, section, name, data);
    };
    const bool single = topics.i < 2;
    const std::string nothing;
    const int rows = single ? 1 : topics.i;
    // Each value is read just before it is saved: where the dependencies lack a row, its first two values are saved.
    for (int row = 0; row < rows; ++row) {
        const std::string index = std::to_string(row);
        save(paths, topics.TopicNames.at(row), topics.TopicPaths.at(row));
        save(indexTable, topics.TopicNames.at(row), index);
        save(matrix, index, single ? nothing : toolkit.create9.Depends.at(row));
    }
}

std::string smartFieldName(int row) { return "SmartField" + std::to_string(row + 1); }

void writeTopics(const Toolkit& toolkit, SettingsFile& file) {
    const Create8& topics = toolkit.create8;
    const std::string root = rootOf(toolkit);
    file.header(root + "\\Dependencies");
    file.blank();
    file.header(root + "\\Dependencies\\IndexTable");
    for (int row = 0; row < topics.i; ++row) file.entry(topics.TopicNames.at(row), std::to_string(row));
    file.blank();
    file.header(root + "\\Dependencies\\Matrix");
    if (topics.i < 2) {
        file.entry("0", "");
    } else {
        for (int row = 0; row < topics.i; ++row) file.entry(std::to_string(row), toolkit.create9.Depends.at(row));
    }
    file.blank();
    file.header(root + "\\Topics");
    for (int row = 0; row < topics.i; ++row) {
        file.entry(topics.TopicNames.at(row), escapedPath(topics.TopicPaths.at(row)));
    }
    file.blank();
}

// The options in the order of the file. There the SmartFields' default is not the last: it stands behind that of the
// table of contents.
std::vector<Option> optionsInFileOrder(const ProductOptions& options) {
    std::vector<Option> ordered = options.all();
    const auto place =
        std::find_if(ordered.begin(), ordered.end(), [](const Option& o) { return o.name == "DefaultTOC"; });
    std::rotate(place + 1, ordered.end() - 1, ordered.end());
    return ordered;
}

}  // namespace

// The store says "Creation Date" and the settings file "CreationDate": two names on purpose. The second marks a Product
// of the installed tree, where Create2 looks for it.
void saveNewProduct(const Toolkit& toolkit, const std::string& timeStamp) {
    const Create2& identity = toolkit.create2;
    cRegistryFunctions& settings = toolkit.settings;
    const auto kept = settings.keepKeys();
    const std::string root = rootOf(toolkit);
    settings.SaveSetting(application, root, "Creation Date", timeStamp);
    settings.SaveSetting(application, "Toolkit\\Products", identity.ProductName.text(), identity.ProductKey.text());
    saveTopics(toolkit);
    for (const Option& option : toolkit.options.all()) {
        settings.SaveSetting(application, root + "\\Options", option.name, option.control->stored());
    }
    for (int row = 0; row < toolkit.create19.SmartFieldCount; ++row) {
        settings.SaveSetting(application, root + "\\SmartFields", smartFieldName(row),
                             toolkit.smartFieldModule.SmartFieldList.at(row));
    }
}

void writeNewProduct(const Toolkit& toolkit, const std::string& path, const std::string& timeStamp) {
    const Create2& identity = toolkit.create2;
    const std::string root = rootOf(toolkit);
    SettingsFile file(toolkit.platform.files, path);
    file.header("Toolkit\\Products");
    file.entry(identity.ProductName.text(), identity.ProductKey.text());
    file.blank();
    file.header(root);
    file.entry("CreationDate", timeStamp);
    file.blank();
    writeTopics(toolkit, file);
    file.header(root + "\\Options");
    for (const Option& option : optionsInFileOrder(toolkit.options)) {
        const std::string text = option.control->stored();
        file.entry(option.name, option.isPath ? escapedPath(text) : text);
    }
    file.blank();
    file.header(root + "\\SmartFields");
    for (int row = 0; row < toolkit.create19.SmartFieldCount; ++row) {
        file.entry(smartFieldName(row), toolkit.smartFieldModule.SmartFieldList.at(row));
    }
    file.blank();
    file.blank();
    file.close();
}

}  // namespace vrix
