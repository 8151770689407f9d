#include "vrix/products.h"

#include <algorithm>

#include "common/refusal.h"
#include "product/encoded_text.h"
#include "product/settings_text.h"

namespace vrix {

namespace {

// The Products that a text names: by name or by key, with an optional prefix for the tree.
std::vector<ProductId> candidates(const ProductStore& store, std::string_view text) {
    std::optional<Tree> tree;
    for (const Tree one : {Tree::installed, Tree::toolkit}) {
        const std::string prefix = std::string(treeName(one)) + ':';
        if (tree || !text.starts_with(prefix)) continue;
        tree = one;
        text.remove_prefix(prefix.size());
    }
    const auto chosen = [&](std::vector<ProductId> all, const auto& fits) {
        std::erase_if(all, [&](const ProductId& id) { return (tree && id.tree != *tree) || !fits(id); });
        return all;
    };
    const auto byName = [&](const ProductId& id) { return sameName(id.name, text); };
    const auto byKey = [&](const ProductId& id) { return !id.key.empty() && samePath(partsOf(id.key), partsOf(text)); };
    const std::vector<ProductId> all = store.list();
    if (auto found = chosen(all, byName); !found.empty()) return found;
    if (auto found = chosen(all, byKey); !found.empty()) return found;
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

Json identityOf(const ProductId& id) { return {{"name", id.name}, {"key", id.key}, {"tree", treeName(id.tree)}}; }

std::string labelOf(const ProductId& id) {
    const std::string key = std::string(treeName(id.tree)) + ":" + id.key;
    return id.name.empty() ? key : quoted(id.name) + " (" + key + ")";
}

std::optional<ProductId> lookFor(const ProductStore& store, const std::string& text) {
    const std::vector<ProductId> found = candidates(store, text);
    if (found.empty()) return std::nullopt;
    if (found.size() == 1) return found[0];
    Lines labels;
    for (const ProductId& id : found) labels.push_back(labelOf(id));
    throw Refusal(Refusal::Kind::wrongUse, quoted(text) + " may be any of " + joined(labels, ", "));
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

// False on a system without a registry where no store is named: Products are files only.
bool ProductSource::hasStore() const {
    const bool isNamed = run_.request.isTrial || !run_.request.store.empty();
    return store_ || isNamed || run_.machine.registry(run_.request.view) != nullptr;
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
