#include "product/check.h"

#include "makers/standard/standard_files.h"
#include "product/settings_text.h"
#include "product_dice.h"

namespace vrix {
namespace {

std::string found(const std::vector<Finding>& findings) {
    std::set<std::string> names;
    for (const Finding& finding : findings) names.insert(std::string(finding.kind->name));
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
    return all;
}

TEST(Check, FindsEachDefectOfAProduct) {
    const Product whole = readSettings(expected("sample.kls"), *western);
    EXPECT_EQ(found(checkProduct(whole)), "");
    const auto with = [&](const KeyPath& path, const StoredValue& value) {
        Product product = whole;
        std::vector<StoredValue>& values = product.at(path).values;
        std::erase_if(values, [&](const StoredValue& v) { return v.name == value.name; });
        if (value.type != 0) values.push_back(value);
        return found(checkProduct(product));
    };
    const auto text = [](const char* name, const char* data) { return textValue(name, data); };
    const auto none = [](const char* name) { return StoredValue{name, 0, ""}; };
    EXPECT_EQ(with(part::options, none("AllowNoTOC")), "missing-option");
    EXPECT_EQ(with(part::options, text("AllowNoTOC", "yes")), "odd-option");
    EXPECT_EQ(with(part::options, text("UserDefined1Pos", "-1")), "odd-option");
    EXPECT_EQ(with(part::options, text("DefaultCoverPage", "-1")), "");
    EXPECT_EQ(with(part::options, {"AllowNoTOC", valuetype::dword, {"\1\0\0\0", 4}}), "odd-type");
    EXPECT_EQ(with(part::options, text("New", "")), "unknown-value");
    EXPECT_EQ(with({"New"}, text("New", "")), "unknown-value");
    EXPECT_EQ(with(part::options, text("UserDefined1", "a\"b")), "quotation-mark");
    EXPECT_EQ(with(part::options, text("UserDefined1", "a\\b")), "plain-backslash");
    EXPECT_EQ(with(part::options, text("UserDefined1", "a\nb")), "line-break");
    EXPECT_EQ(with(part::options, text("UserDefined1", ("a" + half).c_str())), "half-character");
    EXPECT_EQ(with(part::options, text("TOCPath", "%A%\\b")), "percent-pair");
    EXPECT_EQ(with(part::options, text("TOCPath", "C:\\a\\\\b")), "path-with-double-backslash");
    EXPECT_EQ(with(part::options, text("TOCPath", "a.doc")), "relative-path");
    EXPECT_EQ(with(part::options, text("TOCPath", "C:\\a.doc ")), "blank-at-path-end");
    EXPECT_EQ(with(part::options, text("TOCPath", "X:\\a.doc")), "drive-letter");
    EXPECT_EQ(with(part::topics, none("Safety")), "index-without-topic one-topic-left");
    EXPECT_EQ(with(part::addedTopics, text("SAFETY", "C:\\a")), "added-elsewhere");
    EXPECT_EQ(with(part::addedTopics, text("New", "C:\\a")), "topic-without-index");
    EXPECT_EQ(with(part::matrix, none("0")), "topic-without-row");
    EXPECT_EQ(with(part::matrix, text("1", "7")), "unknown-dependency");
    EXPECT_EQ(with(part::matrix, text("9", "")), "row-beyond-topics");
    EXPECT_EQ(with(part::matrix, text("", "")), "unnamed-value-behind");
    EXPECT_EQ(found(checkProduct({whole.id, {}})), "key-without-settings");
    Product unreachable = whole;
    unreachable.at(part::options).unreachable = 1;
    EXPECT_EQ(found(checkProduct(unreachable)), "unreachable-value");
    StandardFiles files;
    EXPECT_EQ(found(checkFiles(whole, files)), "missing-file");
    for (const FindingKind& kind : findingKinds()) EXPECT_EQ(findFindingKind(kind.name), &kind);

    const auto store = std::make_shared<EmbeddedRegistry>();
    Walk walk(store);
    walk.createProduct("K");
    const ProductStore products(*store);
    EXPECT_EQ(found(checkStore(products)), "");
    EXPECT_EQ(found(checkViews(products, products)), "other-view");
    walk.put("Toolkit\\Products", "Again", "K");
    walk.put("Toolkit\\Products", "Inside", "K\\Options");
    walk.put("Toolkit\\Products", "Nothing", "");
    walk.put("Products", "k", "L");
    walk.put("Old", "CreationDate", "");
    EXPECT_EQ(found(checkStore(products)),
              "key-of-nothing leftover nested-products same-name-in-both-trees two-products-one-key");
    EXPECT_THROW(planRemoval(products, {Tree::toolkit, "K", "K"}), Refusal);
    EXPECT_THROW(planApply(products, {{Tree::toolkit, "Inside", "New"}, {}}, Unnamed::removed), Refusal);
}

// Whatever ends the Toolkit on opening a page of a Product, or on exporting it, is a finding.
TEST(Check, FindsWhatEndsTheToolkit) {
    int ended = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        Dice dice(seed);
        Product product = readSettings(expected("sample.kls"), *western);
        std::vector<StoredValue>& values = product.keys[dice.below(static_cast<unsigned>(product.keys.size()))].values;
        if (!values.empty()) values.erase(values.begin() + dice.below(static_cast<unsigned>(values.size())));
        Product odd = dice.product();
        for (const StoredValue& value : dice.once(2) ? odd.at(part::matrix).values : std::vector<StoredValue>()) {
            if (findValue(product.values(part::matrix), value.name) == nullptr)
                product.at(part::matrix).values.push_back(value);
        }
        const auto store = std::make_shared<EmbeddedRegistry>();
        apply(*store, product);
        bool ends = exported(store).empty();
        for (const char* group : {"ProductSettingsBtn", "CoverPagesBtn", "ContentSummaryBtn", "TableOfContentsBtn",
                                  "ConclusionBtn", "TopicsBtn", "TopicOrderBtn", "DependenciesBtn",
                                  "UserDefinedFieldsBtn", "SmartFieldsBtn", "MiscellaneousSettingsBtn"}) {
            Walk walk(store);
            walk.start().editProduct().user.press(group);
            ends |= walk.windows.ended;
        }
        ended += ends;
        const auto findings = checkProduct(ProductStore(*store).read(product.id));
        const bool isFound = std::any_of(findings.begin(), findings.end(),
                                         [](const Finding& f) { return f.kind->severity == Severity::error; });
        ASSERT_TRUE(!ends || isFound) << seed << found(findings) << '\n' << listing(product);
    }
    EXPECT_GT(ended, 5);
}

}  // namespace
}  // namespace vrix
