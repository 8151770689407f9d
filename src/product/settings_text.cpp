#include "product/settings_text.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "common/utf8.h"
#include "platform/files.h"
#include "product/encoded_text.h"
#include "product/settings_lines.h"
#include "store/cregistry_functions.h"
#include "store/product_export.h"

namespace vrix {

namespace {

// A file in memory.
class TextInMemory final : public Files {
public:
    std::string text;

    bool exists(const std::string&) override { return false; }
    void remove(const std::string&) override {}
    std::unique_ptr<TextStream> createText(const std::string&) override { return std::make_unique<Stream>(text); }
    std::unique_ptr<TextStream> openText(const std::string&) override { return nullptr; }

private:
    struct Stream final : TextStream {
        explicit Stream(std::string& to) : text(to) {}
        void writeLine(const std::string& line) override { text.append(line).append("\r\n"); }
        std::string readLine() override { return {}; }
        bool atEnd() override { return true; }
        void close() override {}
        std::string& text;
    };
};

bool hasNoZero(std::string_view text) { return text.find('\0') == std::string_view::npos; }

// Whether the first section is a list of Products, which only the Toolkit puts there.
bool isToolkits(const std::vector<std::string_view>& lines) {
    std::size_t first = 1;
    while (first < lines.size() && lines[first].empty()) ++first;
    return first < lines.size() && lines[first].starts_with('[') && treeOfList(headerPath(lines[first], first));
}

}  // namespace

std::string settingsText(Registry& registry, const ProductId& id) {
    TextInMemory files;
    cRegistryFunctions settings(registry);
    const bool isDeveloper = id.tree == Tree::toolkit;
    ProductExport(settings, {isDeveloper, (isDeveloper ? "Toolkit\\" : "") + id.key})
        .ignoringFailures()
        .write(files, "", id.name);
    return files.text;
}

Product readSettings(std::string_view file, const Encoding& encoding) {
    const auto marked = markedText(file);
    const std::string_view start = marked ? *marked : file;
    const std::string_view signature = start.substr(0, start.find_first_of("\r\n"));
    const bool isVersion5 = signature == "Windows Registry Editor Version 5.00";
    if (!isVersion5 && signature != "REGEDIT4") refuseLine(0, "this is no settings file: REGEDIT4 is missing");
    const std::string text = marked ? *marked : decoded(file, encoding);
    if (!hasNoZero(text)) refuseFirst(text, hasNoZero, "there is a zero character");
    return !isVersion5 && isToolkits(linesOf(text)) ? readToolkitSettings(text)
                                                    : readEditorSettings(text, isVersion5, encoding);
}

// ---- What the readers share ----

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (end < text.size() && line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

void refuseLine(std::size_t index, const std::string& why) {
    throw malformed("line " + std::to_string(index + 1), why);
}

void refuseFirst(std::string_view text, const std::function<bool(std::string_view)>& isGood, const std::string& why) {
    const auto lines = linesOf(text);
    refuseLine(static_cast<std::size_t>(std::find_if_not(lines.begin(), lines.end(), isGood) - lines.begin()), why);
}

KeyPath headerPath(std::string_view line, std::size_t index) {
    if (line.starts_with("[-")) refuseLine(index, "it deletes a key");
    if (!line.ends_with(']')) refuseLine(index, "the name of the key has no end");
    KeyPath path = partsOf(line.substr(1, line.size() - 2));
    const KeyPath family{"HKEY_LOCAL_MACHINE", "Software", "Vrix"};
    if (!isWithin(path, family)) refuseLine(index, "the key is not below HKEY_LOCAL_MACHINE\\Software\\Vrix");
    if (!std::all_of(path.begin(), path.end(), isKeyName)) refuseLine(index, "the name of a key is too long");
    return belowRoot(path, family);
}

std::optional<Tree> treeOfList(const KeyPath& path) {
    if (samePath(path, listPath(Tree::installed))) return Tree::installed;
    return samePath(path, listPath(Tree::toolkit)) ? std::optional(Tree::toolkit) : std::nullopt;
}

Values merged(Values values) {
    std::unordered_map<std::string, std::size_t> places;
    Values all;
    for (StoredValue& value : values) {
        const auto [place, isNew] = places.emplace(foldedName(value.name), all.size());
        if (!isNew) value.name = all[place->second].name;
        (isNew ? all.emplace_back() : all[place->second]) = std::move(value);
    }
    return all;
}

StoredValue storable(StoredValue value) {
    if (valuetype::isText(value.type) && !value.data.empty() && value.data.back() != '\0') value.data += '\0';
    return value;
}

}  // namespace vrix
