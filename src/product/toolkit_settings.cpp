#include <algorithm>
#include <functional>
#include <unordered_set>

#include "product/settings_lines.h"
#include "store/option_table.h"

namespace vrix {

namespace {

struct Line {
    std::size_t index;
    std::string_view text;
};

struct Section {
    std::size_t index;
    KeyPath path;
    std::vector<Line> entries{};
};

struct Entry {
    std::string_view name;
    std::string_view data;
};

bool isPathOption(std::string_view name) {
    const OptionRow* option = findOption(name);
    return option != nullptr && option->kind == OptionKind::path;
}

// Unescapes a path: each doubled backslash becomes one; nothing where one is not doubled.
std::optional<std::string> unescaped(std::string_view data) {
    std::string path;
    for (std::size_t i = 0; i < data.size(); ++i) {
        path += data[i];
        if (data[i] == '\\' && (++i == data.size() || data[i] != '\\')) return std::nullopt;
    }
    return path;
}

std::vector<Section> sectionsOf(const std::vector<std::string_view>& lines) {
    std::vector<Section> sections;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i].empty()) continue;
        if (lines[i].starts_with('[')) {
            sections.push_back({i, headerPath(lines[i], i)});
        } else {
            sections.back().entries.push_back({i, lines[i]});
        }
    }
    return sections;
}

constexpr std::string_view middle = "\"=\"";  // separates name and data

// The next possible separator of an entry, with data or a closing quotation mark behind it.
std::size_t findMiddle(std::string_view line, std::size_t from) {
    const std::size_t at = line.find(middle, from);
    return at != std::string_view::npos && at + middle.size() < line.size() ? at : std::string_view::npos;
}

Entry entryAt(std::string_view line, std::size_t at) {
    const std::size_t data = at + middle.size();
    return {line.substr(1, at - 1), line.substr(data, line.size() - 1 - data)};
}

// The only valid way to split a line. Name and data may hold quotation marks and equal signs: where a line can be split
// in several ways, exactly one must fit its section.
Entry entryOf(const Line& line, const std::function<bool(const Entry&)>& fits) {
    constexpr int tooMany = 100;
    const std::string_view text = line.text;
    std::size_t at = text.starts_with('"') && text.ends_with('"') ? findMiddle(text, 1) : std::string_view::npos;
    if (at == std::string_view::npos) refuseLine(line.index, "this is no entry");
    Entry found = entryAt(text, at);
    if (findMiddle(text, at + 1) == std::string_view::npos) return found;
    int fitting = 0;
    for (int count = 1; at != std::string_view::npos; at = findMiddle(text, at + 1), ++count) {
        if (count == tooMany) refuseLine(line.index, "there are too many quotation marks");
        if (const Entry entry = entryAt(text, at); fits(entry)) {
            found = entry;
            ++fitting;
        }
    }
    if (fitting != 1) refuseLine(line.index, "the quotation marks can be read in more than one way");
    return found;
}

class ToolkitReader {
public:
    explicit ToolkitReader(std::vector<Section> sections) : sections_(std::move(sections)) {}

    Product read() {
        const auto hasNumber = [](const Entry& entry) { return isDigits(entry.data); };
        const auto isNumbered = [](const Entry& entry) { return entry.name.empty() || isDigits(entry.name); };
        const auto isTopic = [this](const Entry& entry) { return topics_.contains(entry.name); };
        const auto isOption = [](const Entry& entry) { return findOption(entry.name) != nullptr; };
        const auto isField = [](const Entry& entry) { return entry.name.starts_with("SmartField"); };
        const auto never = [](std::string_view) { return false; };
        const auto always = [](std::string_view) { return true; };
        identity();
        date();
        empty({"Dependencies"});
        for (const Entry& entry : entries(part::indexTable, hasNumber, never)) topics_.insert(entry.name);
        entries(part::matrix, isNumbered, never);
        entries(part::topics, isTopic, always);
        if (next_ < sections_.size() && samePath(belowProduct(), {"Toolkit"})) {
            empty({"Toolkit"});
            entries(part::addedTopics, isTopic, always);
        }
        entries(part::options, isOption, isPathOption);
        entries(part::smartFields, isField, never);
        if (next_ < sections_.size()) refuseLine(sections_[next_].index, "a Product has no more sections");
        product_.sortKeys();
        return std::move(product_);
    }

private:
    // The list's one row says name and key; the key shows once more in the header behind it.
    void identity() {
        const Section& list = take("the list of Products");
        const Section& root = peek("the Product");
        if (list.entries.size() != 1) refuseLine(list.index, "the list does not name one Product");
        ProductId& id = product_.id;
        id.tree = *treeOfList(list.path);
        const auto fits = [&](const Entry& entry) {
            return samePath(rootPath({id.tree, "", std::string(entry.data)}), root.path);
        };
        const Entry row = entryOf(list.entries[0], fits);
        id.name = row.name;
        id.key = row.data;
        const std::string why = id.name.empty() ? "the Product has no name" : whyNoKey(id);
        if (!why.empty()) refuseLine(list.entries[0].index, why);
        if (!fits(row)) refuseLine(root.index, "the key is not that of the Product");
    }

    void date() {
        const Section& root = take("the Product");
        StoredKey& key = product_.at(part::root);
        if (root.entries.size() != 1) refuseLine(root.index, "the date of creation should stand here alone");
        const Entry entry = entryOf(root.entries[0], [](const Entry& e) { return e.name == "CreationDate"; });
        if (entry.name != "CreationDate") refuseLine(root.entries[0].index, "the date of creation is missing");
        if (entry.data.empty()) return;
        key.values.push_back(textValue(creationDateName(product_.id.tree), entry.data));
    }

    void empty(const KeyPath& path) {
        const Section& section = expect(path);
        if (!section.entries.empty()) refuseLine(section.entries[0].index, "this section has no entries");
    }

    // Reads a section. It makes a key only where it has entries: the Toolkit writes it also where there is no key.
    std::vector<Entry> entries(const KeyPath& path, const std::function<bool(const Entry&)>& fits,
                               const std::function<bool(std::string_view)>& isPath) {
        const std::vector<Line>& lines = expect(path).entries;
        std::vector<Entry> all;
        Values values;
        all.reserve(lines.size());
        for (const Line& line : lines) {
            all.push_back(entryOf(line, fits));
            const Entry& entry = all.back();
            const auto plain = isPath(entry.name) ? unescaped(entry.data) : std::nullopt;
            if (isPath(entry.name) && !plain) refuseLine(line.index, "a backslash of the path is not doubled");
            values.push_back(textValue(entry.name, plain ? *plain : entry.data));
        }
        if (!values.empty()) product_.at(path).values = merged(std::move(values));
        return all;
    }

    const Section& peek(const std::string& what) const {
        if (next_ == sections_.size()) throw malformed("", "the file is cut off: " + what + " is missing");
        return sections_[next_];
    }
    const Section& take(const std::string& what) {
        const Section& section = peek(what);
        ++next_;
        return section;
    }
    KeyPath belowProduct() const {
        const KeyPath root = rootPath(product_.id);
        const Section& section = sections_[next_];
        if (!isWithin(section.path, root)) refuseLine(section.index, "the key is not the Product's");
        return belowRoot(section.path, root);
    }
    const Section& expect(const KeyPath& path) {
        peek(joined(path));
        if (!samePath(belowProduct(), path)) refuseLine(sections_[next_].index, joined(path) + " should stand here");
        return take(joined(path));
    }

    std::vector<Section> sections_;
    std::size_t next_ = 0;
    std::unordered_set<std::string_view> topics_;  // by the table of indexes, which names every Topic
    Product product_;
};

}  // namespace

Product readToolkitSettings(std::string_view text) {
    const auto lines = linesOf(text);
    const bool isWhole = lines.size() > 2 && lines.back().empty() && lines[lines.size() - 2].empty();
    if (!isWhole) throw malformed("", "the file is cut off: it should end with two empty lines");
    return ToolkitReader(sectionsOf(lines)).read();
}

}  // namespace vrix
