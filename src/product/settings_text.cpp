#include "product/settings_text.h"

#include <algorithm>
#include <utility>

#include "common/code_page.h"
#include "platform/files.h"
#include "product/settings_lines.h"
#include "store/cregistry_functions.h"
#include "store/product_export.h"

namespace vrix {

namespace {

// A file that stays in memory.
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

void refuseZeroBytes(std::string_view text) {
    const std::size_t zero = text.find('\0');
    if (zero == std::string_view::npos) return;
    refuseLine(
        static_cast<std::size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(zero), '\n')),
        "there is a zero byte");
}

bool isListHeader(std::string_view line, std::size_t index) {
    if (!line.starts_with('[')) return false;
    const KeyPath path = headerPath(line, index);
    return samePath(path, listPath(Tree::installed)) || samePath(path, listPath(Tree::toolkit));
}

// Whether the first section is a list of Products, which only the Toolkit puts there.
bool isToolkits(const std::vector<std::string_view>& lines) {
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (!lines[i].empty()) return isListHeader(lines[i], i);
    }
    return false;
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
    if (file.starts_with("\xFF\xFE")) {
        const auto text = fromUtf16(file.substr(2));
        if (!text) throw Malformed("", "the file holds half a character");
        refuseZeroBytes(*text);
        const auto lines = linesOf(*text);
        if (lines.empty() || lines[0] != "Windows Registry Editor Version 5.00") {
            refuseLine(0, "this is no settings file of version 5.00");
        }
        return readEditorSettings(*text, true, true, encoding);
    }
    const auto lines = linesOf(file);
    if (lines.empty() || lines[0] != "REGEDIT4") refuseLine(0, "this is no settings file: REGEDIT4 is missing");
    refuseZeroBytes(file);
    if (isToolkits(lines)) return readToolkitSettings(file);
    const auto text = encoding.toUtf8(file);
    return readEditorSettings(text ? *text : file, text.has_value(), false, encoding);
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

std::string linePlace(std::size_t index) { return "line " + std::to_string(index + 1); }

void refuseLine(std::size_t index, const std::string& why) { throw Malformed(linePlace(index), why); }

KeyPath headerPath(std::string_view line, std::size_t index) {
    if (line.starts_with("[-")) refuseLine(index, "it deletes a key");
    if (!line.ends_with(']')) refuseLine(index, "the name of the key has no end");
    KeyPath path = partsOf(line.substr(1, line.size() - 2));
    const KeyPath family{"HKEY_LOCAL_MACHINE", "Software", "Vrix"};
    if (!isWithin(path, family)) refuseLine(index, "the key is not below HKEY_LOCAL_MACHINE\\Software\\Vrix");
    if (!std::all_of(path.begin(), path.end(), isKeyName)) refuseLine(index, "the name of a key is too long");
    return belowRoot(path, family);
}

void GrowingKey::reserve(std::size_t count) {
    values_.reserve(count);
    places_.reserve(count);
}

void GrowingKey::put(StoredValue value) {
    const auto [place, isNew] = places_.emplace(lowerCase(value.name), values_.size());
    if (isNew) {
        values_.push_back(std::move(value));
    } else {
        values_[place->second].type = value.type;
        values_[place->second].data = std::move(value.data);
    }
}

StoredValue storable(StoredValue value) {
    if (isText(value.type) && !value.data.empty() && value.data.back() != '\0') value.data += '\0';
    return value;
}

namespace {

void appendUtf8(std::string& text, std::uint32_t character) {
    const auto add = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto tail = [&](unsigned shift) { add(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) return add(character);
    if (character < 0x800) return add(0xC0 | character >> 6), tail(0);
    if (character < 0x10000) return add(0xE0 | character >> 12), tail(6), tail(0);
    add(0xF0 | character >> 18), tail(12), tail(6), tail(0);
}

}  // namespace

std::optional<std::string> fromUtf16(std::string_view bytes) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    const auto unit = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at]) |
                                          static_cast<unsigned char>(bytes[at + 1]) << 8);
    };
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        std::uint32_t character = unit(at);
        if (character >= 0xD800 && character < 0xE000) {
            at += 2;
            const std::uint32_t second = at < bytes.size() ? unit(at) : 0;
            if (character >= 0xDC00 || second < 0xDC00 || second >= 0xE000) return std::nullopt;
            character = 0x10000 + ((character - 0xD800) << 10) + (second - 0xDC00);
        }
        appendUtf8(text, character);
    }
    return text;
}

}  // namespace vrix
