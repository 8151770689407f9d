#include "product/dependency_names.h"
#include "vrix/commands.h"
#include "vrix/products.h"

namespace vrix::command {

namespace {

// Reads only what the list shows of a Product.
Product readOutline(const ProductStore& store, const ProductId& id) {
    Product outline{id, {}};
    if (!whyNoKey(id).empty()) return outline;
    for (const KeyPath& part : {part::root, part::topics, part::addedTopics}) {
        outline.at(part).values = store.values(joinedPaths(rootPath(id), part));
    }
    return outline;
}

}  // namespace

ExitCode list(Run& run) {
    Store store(run, Store::Use::reading);
    Json all = Json::array();
    std::vector<Lines> rows{{"NAME", "KEY", "TREE", "TOPICS", "CREATED"}};
    for (const ProductId& id : store.products().list()) {
        const Product product = readOutline(store.products(), id);
        const std::size_t topics = product.values(part::topics).size() + product.values(part::addedTopics).size();
        all.push_back(identityOf(id));
        all.back().update({{"topics", topics}, {"created", createdOf(product)}});
        rows.push_back({id.name, id.key, treeName(id.tree), std::to_string(topics), createdOf(product)});
    }
    run.answer(all, all.empty() ? Lines{"The store has no Products."} : tableLines(rows));
    return ExitCode::done;
}

namespace {

std::vector<Lines> optionRows(const Product& product) {
    std::vector<Lines> rows;
    for (const StoredValue& option : optionsOf(product)) {
        if (!textOf(option).empty()) rows.push_back({"  " + option.name, textOf(option)});
    }
    return rows;
}

std::vector<Lines> topicRows(const Product& product, const KeyPath& path) {
    const DependencyNames dependencies(product);
    std::vector<Lines> rows;
    for (const StoredValue& topic : product.values(path)) {
        const std::string others = joined(dependencies.of(topic.name), ", ");
        rows.push_back({"  " + topic.name, textOf(topic), others.empty() ? "" : "needs " + others});
    }
    return rows;
}

std::vector<Lines> fieldRows(const Product& product) {
    std::vector<Lines> rows;
    for (const StoredValue& field : product.values(part::smartFields)) rows.push_back({"  " + textOf(field)});
    return rows;
}

}  // namespace

ExitCode show(Run& run) {
    const Product product = ProductSource(run).read(run.request.operands.at(0));
    if (run.request.json) {
        run.printJson(jsonOf(product), 2);
        return ExitCode::done;
    }
    const auto print = [&](const char* title, const std::vector<Lines>& rows) {
        if (!rows.empty()) run.print(Lines{"", title});
        run.print(tableLines(rows));
    };
    run.print(tableLines({{"Name", product.id.name},
                          {"Key", product.id.key},
                          {"Tree", treeName(product.id.tree)},
                          {"Created", createdOf(product)}}));
    print("Options, where not empty", optionRows(product));
    print("Topics", topicRows(product, part::topics));
    print("Added Topics", topicRows(product, part::addedTopics));
    print("SmartFields", fieldRows(product));
    return ExitCode::done;
}

ExitCode schema(Run& run) {
    run.printJson(productSchema(), 2);
    return ExitCode::done;
}

}  // namespace vrix::command
