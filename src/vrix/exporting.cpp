#include <set>

#include "common/refusal.h"
#include "common/utf8.h"
#include "makers/embedded/embedded_registry.h"
#include "product/encoded_text.h"
#include "product/plan.h"
#include "product/settings_text.h"
#include "vrix/commands.h"
#include "vrix/policy_collection.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

// The settings file of a Product that is in no store: made from a store in memory that holds only it.
std::string settingsOf(const Product& product) {
    EmbeddedRegistry registry;
    perform(registry, planApply(ProductStore(registry), product, Unnamed::removed));
    return settingsText(registry, product.id);
}

std::string bytesOf(Run& run, const Product& product, const std::string& format) {
    if (format == "json") return toJson(product);
    if (format == "xml") {
        return policyCollection(product, run.request.view == RegistryView::bits32);
    }
    return encodedSettings(settingsOf(product), *settingsEncoding(run));
}

std::string bytesOf(Run& run, Store& store, const ProductId& id, const std::string& format) {
    if (format != "kls") return bytesOf(run, store.products().read(id), format);
    const auto copy = copyOf(store.products(), {listPath(id.tree), rootPath(id)});  // read in a third of the time
    return encodedSettings(settingsText(*copy, id), *settingsEncoding(run));
}

std::string formatOf(const std::string& path) {
    const std::string name = foldedName(path);
    return name.ends_with(".json") ? "json" : name.ends_with(".xml") ? "xml" : "kls";
}

// A text as the name of a file on any system.
std::string fileName(const std::string& text) {
    static const std::set<std::string> devices{"con",  "prn",  "aux",  "nul",  "com1", "com2", "com3", "com4",
                                               "com5", "com6", "com7", "com8", "com9", "lpt1", "lpt2", "lpt3",
                                               "lpt4", "lpt5", "lpt6", "lpt7", "lpt8", "lpt9"};
    std::string name = shown(text);
    for (char& c : name) {
        if (std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos) c = '_';
    }
    while (name.ends_with('.') || name.ends_with(' ')) name.back() = '_';
    const std::string stem = name.substr(0, name.find('.'));
    return devices.contains(foldedName(stem)) ? '_' + name : name;
}

// Writes a file, and describes it as a line of JSON.
Json save(Run& run, const ProductId& id, const std::string& path, const std::string& bytes) {
    Disk& disk = run.machine.disk();
    const auto file = disk.open(path, FileUse::replace);
    if (!file || !file->write(bytes) || !file->close()) {
        throw diskRefusal(disk, "the file " + quoted(path) + " cannot be written");
    }
    if (!run.request.json) run.print(labelOf(id) + " is in " + path);
    Json line = identityOf(id);
    line["file"] = path;
    return line;
}

// Every Product in a file of its own, named by its key.
Json exportAll(Run& run) {
    Json lines = Json::array();
    Store store(run, Store::Use::reading);
    Disk& disk = run.machine.disk();
    if (!disk.makeFolder(run.request.folder)) {
        throw diskRefusal(disk, "the folder " + quoted(run.request.folder) + " cannot be made");
    }
    const std::string format = run.request.format.empty() ? "kls" : run.request.format;
    std::set<std::string> used;
    for (const ProductId& id : store.products().list()) {
        if (!whyNoKey(id).empty()) continue;
        const std::string first = fileName(id.key);
        std::string name = first;
        for (int number = 2; !used.insert(foldedName(name)).second; ++number) {
            name = first + " " + std::to_string(number);
        }
        const std::string path = run.request.folder + '/' + name + '.' + format;
        lines.push_back(save(run, id, path, bytesOf(run, store, id, format)));
    }
    return lines;
}

Json exportOne(Run& run, const std::string& text, const std::string& path) {
    const std::string format = formatOf(path);
    ProductSource source(run);
    if (const auto id = source.find(text)) {
        return Json::array({save(run, *id, path, bytesOf(run, source.store(), *id, format))});
    }
    const Product product = source.read(text);
    return Json::array({save(run, product.id, path, bytesOf(run, product, format))});
}

}  // namespace

ExitCode exportProducts(Run& run) {
    const auto& operands = run.request.operands;
    const bool all = !run.request.folder.empty();
    if (operands.size() != (all ? 0 : 2)) {
        throw Refusal(Refusal::Kind::wrongUse, "export takes a Product and a file, or --all with a folder");
    }
    const Json lines = all ? exportAll(run) : exportOne(run, operands[0], operands[1]);
    if (run.request.json) run.printJson(lines);
    return ExitCode::done;
}

}  // namespace vrix::command
