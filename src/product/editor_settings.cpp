#include <utility>

#include "product/encoded_text.h"
#include "product/settings_lines.h"

namespace vrix {

namespace {

struct Section {
    std::size_t index;
    KeyPath path;
    Values values{};
};

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

class EditorReader {
public:
    EditorReader(std::string_view text, bool hexIsUtf16, const Encoding& encoding)
        : lines_(linesOf(text)), hexIsUtf16_(hexIsUtf16), encoding_(encoding) {}

    Product read() {
        if (lines_.size() < 2 || !lines_.back().empty()) {
            throw malformed("", "the file does not end with an empty line: it may be cut off");
        }
        for (at_ = 1; at_ < lines_.size(); ++at_) readLine(lines_[at_]);
        for (Section& section : sections_) section.values = merged(std::move(section.values));
        return productOf();
    }

private:
    [[noreturn]] void refuse(const std::string& why) const { refuseLine(at_, why); }

    // ---- Lines ----

    void readLine(std::string_view line) {
        if (trimmed(line).empty() || line.starts_with(';')) return;
        if (line.starts_with('[')) {
            KeyPath path = headerPath(line, at_);
            const auto [known, isNew] = places_.emplace(foldedPath(path), sections_.size());
            if (isNew) sections_.push_back({at_, std::move(path)});
            section_ = known->second;
        } else if (line.starts_with('"') || line.starts_with('@')) {
            if (sections_.empty()) refuse("the value stands in no section");
            sections_[section_].values.push_back(storable(readValue(line)));
        } else {
            refuse("this is neither a section nor a value");
        }
    }

    StoredValue readValue(std::string_view line) {
        StoredValue value;
        if (line.starts_with('@')) {
            line.remove_prefix(1);
        } else {
            value.name = quoted(line);
        }
        if (!line.starts_with('=')) refuse("there is no equal sign behind the name");
        line.remove_prefix(1);
        if (line.starts_with('-')) refuse("it deletes a value");
        if (line.starts_with('"')) {
            value.data = quoted(line) + '\0';
            if (!trimmed(line).empty()) refuse("there is more behind the text");
        } else if (line.starts_with("dword:")) {
            value.type = valuetype::dword;
            value.data = number(line.substr(6));
        } else {
            value.type = typeOf(line);
            value.data = hexData(line, value.type);
        }
        return value;
    }

    // Parses a quoted text and removes it from the line.
    std::string quoted(std::string_view& line) {
        std::string text;
        std::size_t i = 1;
        for (; i < line.size() && line[i] != '"'; ++i) {
            if (line[i] == '\\' && (++i == line.size() || (line[i] != '\\' && line[i] != '"'))) {
                refuse("a backslash stands in front of neither backslash nor quotation mark");
            }
            text += line[i];
        }
        if (i >= line.size()) refuse("the text has no end");
        line.remove_prefix(i + 1);
        return text;
    }

    std::string number(std::string_view digits) {
        const auto number = hexNumber(trimmed(digits), 8);
        if (!number) refuse("this is no number");
        std::string data;
        for (unsigned shift = 0; shift < 32; shift += 8) data += static_cast<char>(*number >> shift & 0xFF);
        return data;
    }

    // Parses "hex:" or "hex(2):" and removes it from the line.
    std::uint32_t typeOf(std::string_view& line) {
        const std::size_t colon = line.find(':');
        const std::string_view kind = line.substr(0, std::min(colon, line.size()));
        std::optional<std::uint32_t> type;
        if (kind == "hex") type = valuetype::binary;
        if (kind.starts_with("hex(") && kind.ends_with(')')) type = hexNumber(kind.substr(4, kind.size() - 5), 8);
        if (colon == std::string_view::npos || !type) refuse("this is no data");
        line.remove_prefix(colon + 1);
        return *type;
    }

    // Bytes with commas between them; a backslash at the end leads to the next line.
    std::string hexData(std::string_view line, std::uint32_t type) {
        std::string list;
        for (;;) {
            line = trimmed(line);
            const bool goesOn = line.ends_with('\\');
            if (goesOn) line.remove_suffix(1);
            list += trimmed(line);
            if (!goesOn) break;
            if (!list.empty() && !list.ends_with(',')) refuse("there is no comma behind the byte");
            if (++at_ == lines_.size()) throw malformed("", "the file is cut off");
            line = lines_[at_];
        }
        std::string data;
        for (std::string_view rest = list; !rest.empty();) {
            const std::size_t comma = rest.find(',');
            const auto byte = hexNumber(rest.substr(0, comma), 2);
            if (!byte || comma == rest.size() - 1) refuse("this is no list of bytes");
            data += static_cast<char>(*byte);
            rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
        }
        return valuetype::isText(type) ? textData(data) : data;
    }

    std::string textData(const std::string& bytes) const {
        const auto text = hexIsUtf16_ ? fromUtf16Bytes(bytes) : encoding_.toUtf8(bytes);
        if (!text) refuse("the bytes are no text");
        return *text;
    }

    // ---- Sections ----

    Product productOf() {
        Product product{identity(), {}};
        KeyMaker keys(product);
        const KeyPath root = rootPath(product.id);
        for (Section& section : sections_) {
            if (isWithin(section.path, root)) {
                keys.at(belowRoot(section.path, root)).values = std::move(section.values);
            } else if (!treeOfList(section.path) && !(isWithin(root, section.path) && section.values.empty())) {
                refuseLine(section.index, "the key is not that of the file's one Product");
            }
        }
        if (product.keys.empty()) throw malformed("", "the file has no settings of a Product");
        product.sortKeys();
        return product;
    }

    // By the one row of a list, or by the first key that may be a Product's.
    ProductId identity() const {
        std::optional<ProductId> id;
        for (const Section& section : sections_) {
            if (const auto tree = treeOfList(section.path)) readList(section, *tree, id);
        }
        for (std::size_t i = 0; i < sections_.size() && !id; ++i) id = rootOf(sections_[i]);
        if (!id) throw malformed("", "the file names no Product");
        if (const std::string why = whyNoKey(*id); !why.empty()) throw malformed("", why);
        return *id;
    }

    static void readList(const Section& list, Tree tree, std::optional<ProductId>& id) {
        for (const StoredValue& row : list.values) {
            if (id) refuseLine(list.index, "there is more than one Product in the lists");
            if (!valuetype::isText(row.type) || row.name.empty())
                refuseLine(list.index, "the row of the list is no text");
            id = {tree, row.name, textOf(row)};
        }
    }

    static std::optional<ProductId> rootOf(const Section& section) {
        KeyPath path = section.path;
        if (treeOfList(path) || path.empty() || samePath(path, {"Toolkit"})) return std::nullopt;
        const Tree tree = sameName(path[0], "Toolkit") ? Tree::toolkit : Tree::installed;
        if (tree == Tree::toolkit) path.erase(path.begin());
        return ProductId{tree, "", joined(path)};
    }

    std::vector<std::string_view> lines_;
    bool hexIsUtf16_;
    const Encoding& encoding_;
    std::size_t at_ = 0;
    std::vector<Section> sections_;
    std::unordered_map<std::string, std::size_t> places_;  // of sections, by their folded paths
    std::size_t section_ = 0;                              // where values go
};

}  // namespace

Product readEditorSettings(std::string_view text, bool hexIsUtf16, const Encoding& encoding) {
    return EditorReader(text, hexIsUtf16, encoding).read();
}

}  // namespace vrix
