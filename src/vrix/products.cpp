#include "vrix/products.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "product/encoded_text.h"
#include "product/json/product_json.h"
#include "product/settings_text.h"

namespace vrix {

namespace {

constexpr std::string_view installedPrefix = "installed:";
constexpr std::string_view toolkitPrefix = "toolkit:";

// What a user names a Product by.
struct Wanted {
    std::optional<Tree> tree{};
    std::string text;
};

Wanted wantedBy(std::string text) {
    const auto take = [&](std::string_view prefix) {
        const bool starts = text.starts_with(prefix);
        if (starts) text.erase(0, prefix.size());
        return starts;
    };
    if (take(installedPrefix)) return {Tree::installed, text};
    if (take(toolkitPrefix)) return {Tree::toolkit, text};
    return {std::nullopt, text};
}

std::vector<ProductId> candidates(const ProductStore& store, const Wanted& wanted) {
    const auto chosen = [&](std::vector<ProductId> all, const auto& fits) {
        std::erase_if(all, [&](const ProductId& id) { return (wanted.tree && id.tree != *wanted.tree) || !fits(id); });
        return all;
    };
    const auto byName = [&](const ProductId& id) { return sameName(id.name, wanted.text); };
    const auto byKey = [&](const ProductId& id) {
        return !id.key.empty() && samePath(partsOf(id.key), partsOf(wanted.text));
    };
    const std::vector<ProductId> listed = store.list();
    if (auto found = chosen(listed, byName); !found.empty()) return found;
    if (auto found = chosen(listed, byKey); !found.empty()) return found;
    return chosen(store.leftovers(), byKey);
}

bool isJson(std::string_view bytes) {
    const auto marked = markedText(bytes);
    const std::string_view text = marked ? *marked : bytes;
    return text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size())).starts_with('{');
}

}  // namespace

nlohmann::ordered_json identityOf(const Run& run, const ProductId& id) {
    return {{"name", run.shown(id.name)}, {"key", run.shown(id.key)}, {"tree", treeName(id.tree)}};
}

std::string labelOf(const Run& run, const ProductId& id) {
    const std::string key = std::string(treeName(id.tree)) + ":" + run.shown(id.key);
    return id.name.empty() ? key : quoted(run.shown(id.name)) + " (" + key + ")";
}

std::optional<ProductId> lookFor(Run& run, const ProductStore& store, const std::string& text) {
    Wanted wanted = wantedBy(text);
    const auto known = run.stored(wanted.text);
    if (!known) return std::nullopt;
    wanted.text = *known;
    const std::vector<ProductId> found = candidates(store, wanted);
    if (found.empty()) return std::nullopt;
    if (found.size() == 1) return found[0];
    std::string all;
    for (const ProductId& id : found) all += (all.empty() ? "" : ", ") + labelOf(run, id);
    throw Failure(ExitCode::wrongUse, quoted(text) + " may be any of " + all);
}

ProductId findProduct(Run& run, const ProductStore& store, const std::string& text) {
    if (auto found = lookFor(run, store, text)) return *std::move(found);
    throw Failure(ExitCode::notFound, "the store has no Product " + quoted(text));
}

Product productOfFile(Run& run, const std::string& path) {
    const auto bytes = run.host.readFile(path);
    if (!bytes) throw Failure(ExitCode::notFound, "there is no file " + quoted(path));
    try {
        return isJson(*bytes) ? fromJson(*bytes) : readSettings(*bytes, run.encoding());
    } catch (const Refusal& refusal) {
        throw Refusal(refusal.kind(), path + ": " + refusal.what());
    }
}

Store& ProductSource::store() {
    if (!store_) store_.emplace(run_, Store::Use::reading);
    return *store_;
}

// Where the system has no registry and nobody names a store, files do without.
bool ProductSource::hasStore() const {
    return store_ || run_.request.store.kind || run_.host.registry(run_.request.store.view) != nullptr;
}

std::optional<ProductId> ProductSource::find(const std::string& text) {
    return hasStore() ? lookFor(run_, store().products(), text) : std::nullopt;
}

Product ProductSource::read(const std::string& text) {
    if (const auto id = find(text)) return store().products().read(*id);
    try {
        return productOfFile(run_, text);
    } catch (const Failure& failure) {
        if (failure.code != ExitCode::notFound) throw;
        throw Failure(ExitCode::notFound, "there is neither a Product nor a file " + quoted(text));
    }
}

}  // namespace vrix
