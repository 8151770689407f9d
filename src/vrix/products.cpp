#include "vrix/products.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "common/refusal.h"
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

// What a file holds; nothing where no file is.
std::optional<std::string> readFile(Disk& disk, const std::string& path) {
    if (disk.kindOf(path) == PathKind::nothing) return std::nullopt;
    constexpr std::size_t portion = 65'536;
    const auto file = disk.open(path, FileUse::read);
    std::string bytes;
    while (file) {
        const auto part = file->read(portion);
        if (!part) break;
        bytes += *part;
        if (part->size() < portion) return bytes;
    }
    throw diskRefusal(disk, "the file " + quoted(path) + " cannot be read");
}

}  // namespace

nlohmann::ordered_json identityOf(const ProductId& id) {
    return {{"name", shown(id.name)}, {"key", shown(id.key)}, {"tree", treeName(id.tree)}};
}

std::string labelOf(const ProductId& id) {
    const std::string key = std::string(treeName(id.tree)) + ":" + shown(id.key);
    return id.name.empty() ? key : quoted(shown(id.name)) + " (" + key + ")";
}

std::optional<ProductId> lookFor(const ProductStore& store, const std::string& text) {
    const std::vector<ProductId> found = candidates(store, wantedBy(text));
    if (found.empty()) return std::nullopt;
    if (found.size() == 1) return found[0];
    std::string all;
    for (const ProductId& id : found) all += (all.empty() ? "" : ", ") + labelOf(id);
    throw Refusal(Refusal::Kind::wrongUse, quoted(text) + " may be any of " + all);
}

ProductId findProduct(const ProductStore& store, const std::string& text) {
    if (auto found = lookFor(store, text)) return *std::move(found);
    throw Refusal(Refusal::Kind::notFound, "the store has no Product " + quoted(text));
}

std::unique_ptr<Encoding> settingsEncoding(const Run& run) {
    const unsigned number = run.request.codePage.value_or(run.machine.codePage());
    auto encoding = run.machine.encoding(number);
    if (encoding) return encoding;
    throw Refusal(Refusal::Kind::wrongUse, "this system knows no code page " + std::to_string(number));
}

Product productOfFile(Run& run, const std::string& path) {
    const auto bytes = readFile(run.machine.disk(), path);
    if (!bytes) throw Refusal(Refusal::Kind::notFound, "there is no file " + quoted(path));
    try {
        return isJson(*bytes) ? fromJson(*bytes) : readSettings(*bytes, *settingsEncoding(run));
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
    return store_ || run_.request.store.kind || run_.machine.registry(run_.request.store.view) != nullptr;
}

std::optional<ProductId> ProductSource::find(const std::string& text) {
    return hasStore() ? lookFor(store().products(), text) : std::nullopt;
}

Product ProductSource::read(const std::string& text) {
    if (const auto id = find(text)) return store().products().read(*id);
    try {
        return productOfFile(run_, text);
    } catch (const Refusal& refusal) {
        if (refusal.kind() != Refusal::Kind::notFound) throw;
        throw Refusal(Refusal::Kind::notFound, "there is neither a Product nor a file " + quoted(text));
    }
}

}  // namespace vrix
