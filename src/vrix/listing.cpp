#include <nlohmann/json.hpp>

#include "product/json/product_json.h"
#include "product/view.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

using Json = nlohmann::ordered_json;

// What the list tells of a Product. No more of it is read.
Product readOutline(const ProductStore& store, const ProductId& id) {
    Product outline{id, {}};
    if (!whyNoKey(id).empty()) return outline;
    for (const KeyPath& part : {part::root, part::topics, part::addedTopics}) {
        outline.at(part).values = store.values(joinedPaths(rootPath(id), part));
    }
    return outline;
}

std::size_t countIn(const Product& product, const KeyPath& path) {
    const StoredKey* key = product.find(path);
    return key == nullptr ? 0 : key->values.size();
}

Json lineOf(const Run& run, const Product& product) {
    Json line = identityOf(run, product.id);
    line["topics"] = countIn(product, part::topics) + countIn(product, part::addedTopics);
    line["created"] = run.shown(createdOf(product));
    return line;
}

}  // namespace

ExitCode list(Run& run) {
    Store store(run, Store::Use::reading);
    Json lines = Json::array();
    for (const ProductId& id : store.products().list()) lines.push_back(lineOf(run, readOutline(store.products(), id)));
    if (run.request.json) {
        run.printJson(lines);
    } else if (lines.empty()) {
        run.print("The store has no Products.");
    } else {
        std::vector<std::vector<std::string>> rows{{"NAME", "KEY", "TREE", "TOPICS", "CREATED"}};
        for (const Json& line : lines) {
            rows.push_back({line["name"], line["key"], line["tree"], line["topics"].dump(), line["created"]});
        }
        run.host.write(tableText(rows));
    }
    return ExitCode::done;
}

namespace {

std::string rowsOf(const Run& run, const std::vector<std::pair<std::string, std::string>>& options) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& [name, text] : options) {
        if (!text.empty()) rows.push_back({"  " + run.shown(name), run.shown(text)});
    }
    return tableText(rows);
}

std::string rowsOf(const Run& run, const std::vector<TopicView>& topics) {
    std::vector<std::vector<std::string>> rows;
    for (const TopicView& topic : topics) {
        std::string others;
        for (const std::string& other : topic.dependsOn) others += (others.empty() ? "" : ", ") + run.shown(other);
        rows.push_back({"  " + run.shown(topic.name), run.shown(topic.file), others.empty() ? "" : "needs " + others});
    }
    return tableText(rows);
}

std::string rowsOf(const Run& run, const std::vector<std::string>& fields) {
    std::string rows;
    for (const std::string& field : fields) rows += "  " + run.shown(field) + '\n';
    return rows;
}

}  // namespace

ExitCode show(Run& run) {
    const Product product = ProductSource(run).read(run.request.operands.at(0));
    if (run.request.json) {
        run.host.write(toJson(product));
        return ExitCode::done;
    }
    const ProductView view = viewOf(product);
    const auto print = [&](const std::string& title, const std::string& rows) {
        if (!rows.empty()) run.host.write('\n' + title + '\n' + rows);
    };
    run.host.write(tableText({{"Name", run.shown(view.id.name)},
                              {"Key", run.shown(view.id.key)},
                              {"Tree", treeName(view.id.tree)},
                              {"Created", run.shown(view.created)}}));
    print("Options, where not empty", rowsOf(run, view.options));
    print("Topics", rowsOf(run, view.topics));
    print("Added Topics", rowsOf(run, view.addedTopics));
    print("SmartFields", rowsOf(run, view.smartFields));
    return ExitCode::done;
}

ExitCode schema(Run& run) {
    run.host.write(productSchema());
    return ExitCode::done;
}

}  // namespace vrix::command
