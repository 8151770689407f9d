#pragma once

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "common/utf8.h"
#include "makers/embedded/embedded_registry.h"
#include "product/compare.h"
#include "product/plan.h"
#include "product/product.h"
#include "store/option_table.h"
#include "test_encoding.h"
#include "walk.h"

// Random Products, and what the tests of Products share.

namespace vrix {

inline const std::unique_ptr<Encoding> western = testEncoding();

inline const std::string half = "\xED\xA0\x80";  // an unpaired surrogate

// Random Products with any content, in which unusual content is frequent.
class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}

    unsigned below(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(random_); }
    int row(int count) { return static_cast<int>(below(static_cast<unsigned>(count))); }
    bool once(unsigned in) { return below(in) == 0; }
    std::string any(const std::vector<std::string>& texts) { return texts[below(static_cast<unsigned>(texts.size()))]; }

    Product product() {
        Product product{{once(2) ? Tree::toolkit : Tree::installed, any({"Manual", "The \"Manual\""}), "K"}, {}};
        product.at(part::root);
        for (const KeyPath& path :
             {part::root, part::topics, part::addedTopics, part::indexTable, part::matrix, part::options,
              part::smartFields, KeyPath{"Odd", "Deep"}, KeyPath{"Options", "Below"}, KeyPath{"日本" + half}}) {
            if (!once(4)) fill(product.at(path));
        }
        product.sortKeys();
        return product;
    }

private:
    void fill(StoredKey& key) {
        const bool isOptions = key.path == part::options;
        std::set<std::string> names;
        for (unsigned count = below(12); count > 0; --count) {
            std::string name =
                any({"", "0", "1", "2", "10", "Intro", "Tools", "a\"=\"b", "C:\\", "äö", "日本", "Жук", half, "x",
                     "SmartField1", "SmartField2", "SmartField3", "Creation Date", "CreationDate"});
            if (isOptions && !once(8)) name = optionTable()[below(88)].name;
            if (names.insert(foldedName(name)).second) key.values.push_back(value(name));
        }
    }
    StoredValue value(const std::string& name) {
        const std::string text =
            any({"", "0", "1", "2", "-1", "01", "0 1", "1 7", "0  1 ", "yes", "%DOCS%\\a", "\\\\server\\a.doc",
                 "C:\\a\\b.doc", "a\"b", "a\r\nb", "ü日本語", "Жук", "a" + half, "<!Price!>"});
        if (!once(5)) return textValue(name, text);
        const std::uint32_t type = below(13);
        const bool isText = type == 1 || type == 2 || type == 7;
        return {name, type, once(3) ? "" : text + std::string(1 + below(3), isText ? '\0' : '\x9D')};
    }
    std::mt19937 random_;
};

// A zero byte shows as "~".
inline std::string listing(const Product& product) {
    std::string text = product.id.name + ',' + product.id.key + (product.id.tree == Tree::toolkit ? "" : "!") + '\n';
    for (const StoredKey& key : product.keys) {
        text += '[' + joined(key.path) + "]\n";
        for (const auto& [name, type, data] : key.values) text += name + '=' + std::to_string(type) + ':' + data + '\n';
    }
    std::replace(text.begin(), text.end(), '\0', '~');
    return text;
}

inline std::string listing(const std::vector<Difference>& differences) {
    std::string text;
    for (const auto& [group, what, left, right] : differences) {
        text += std::string(groupName(group)) + ": " + what + ": " + left.value_or("-") + " | " + right.value_or("-") +
                '\n';
    }
    return text;
}

inline void apply(Registry& registry, const Product& product, Unnamed unnamed = Unnamed::removed) {
    perform(registry, planApply(ProductStore(registry), product, unnamed));
}

inline std::string applied(const Product& product) {
    EmbeddedRegistry registry;
    apply(registry, product);
    const ProductStore store(registry);
    EXPECT_EQ(store.list().at(0).name, product.id.name);
    return listing(store.read(product.id));
}

// The file that the hub of the Toolkit writes; none if that ends the program.
inline std::string exported(const std::shared_ptr<EmbeddedRegistry>& store) {
    Walk walk(store);
    walk.start().editProduct().user.press("ExportSettingsBtn").type("SettingsPath", walk.path("out")).press("NextBtn");
    return walk.windows.ended ? "" : walk.file("out");
}

}  // namespace vrix
