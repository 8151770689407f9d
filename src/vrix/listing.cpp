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

Json lineOf(const Product& product) {
    Json line = identityOf(product.id);
    line["topics"] = countIn(product, part::topics) + countIn(product, part::addedTopics);
    line["created"] = shown(createdOf(product));
    return line;
}

}  // namespace

ExitCode list(Run& run) {
    Store store(run, Store::Use::reading);
    Json lines = Json::array();
    for (const ProductId& id : store.products().list()) lines.push_back(lineOf(readOutline(store.products(), id)));
    if (run.request.json) {
        run.printJson(lines);
    } else if (lines.empty()) {
        run.print("The store has no Products.");
    } else {
        std::vector<std::vector<std::string>> rows{{"NAME", "KEY", "TREE", "TOPICS", "CREATED"}};
        for (const Json& line : lines) {
            rows.push_back({line["name"], line["key"], line["tree"], line["topics"].dump(), line["created"]});
        }
        run.console.write(tableText(rows));
    }
    return ExitCode::done;
}

namespace {

std::string rowsOf(const std::vector<std::pair<std::string, std::string>>& options) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& [name, text] : options) {
        if (!text.empty()) rows.push_back({"  " + shown(name), shown(text)});
    }
    return tableText(rows);
}

std::string rowsOf(const std::vector<TopicView>& topics) {
    std::vector<std::vector<std::string>> rows;
    for (const TopicView& topic : topics) {
        std::string others;
        for (const std::string& other : topic.dependsOn) others += (others.empty() ? "" : ", ") + shown(other);
        rows.push_back({"  " + shown(topic.name), shown(topic.file), others.empty() ? "" : "needs " + others});
    }
    return tableText(rows);
}

std::string rowsOf(const std::vector<std::string>& fields) {
    std::string rows;
    for (const std::string& field : fields) rows += "  " + shown(field) + '\n';
    return rows;
}

}  // namespace

ExitCode show(Run& run) {
    const Product product = ProductSource(run).read(run.request.operands.at(0));
    if (run.request.json) {
        run.console.write(toJson(product));
        return ExitCode::done;
    }
    const ProductView view = viewOf(product);
    const auto print = [&](const std::string& title, const std::string& rows) {
        if (!rows.empty()) run.console.write('\n' + title + '\n' + rows);
    };
    run.console.write(tableText({{"Name", shown(view.id.name)},
                                 {"Key", shown(view.id.key)},
                                 {"Tree", treeName(view.id.tree)},
                                 {"Created", shown(view.created)}}));
    print("Options, where not empty", rowsOf(view.options));
    print("Topics", rowsOf(view.topics));
    print("Added Topics", rowsOf(view.addedTopics));
    print("SmartFields", rowsOf(view.smartFields));
    return ExitCode::done;
}

ExitCode schema(Run& run) {
    run.console.write(productSchema());
    return ExitCode::done;
}

}  // namespace vrix::command
