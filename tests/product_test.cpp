#include "product/product.h"

#include <algorithm>
#include <random>
#include <set>

#include "common/letters.h"
#include "product/check.h"
#include "product/compare.h"
#include "product/json/product_json.h"
#include "product/plan.h"
#include "product/settings_text.h"
#include "store/option_table.h"
#include "test_encoding.h"
#include "walk.h"

namespace vrix {
namespace {

const std::unique_ptr<Encoding> western = testEncoding();

// Random Products in which anything may stand, and few things are rare.
class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}

    unsigned below(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(random_); }
    bool once(unsigned in) { return below(in) == 0; }
    std::string any(const std::vector<std::string>& texts) { return texts[below(static_cast<unsigned>(texts.size()))]; }

    Product product() {
        Product product{{once(2) ? Tree::toolkit : Tree::installed, any({"Manual", "The \"Manual\""}), "K"}, {}};
        product.at(part::root);
        for (const KeyPath& path :
             {part::root, part::topics, part::addedTopics, part::indexTable, part::matrix, part::options,
              part::smartFields, KeyPath{"Odd", "Deep"}, KeyPath{"Options", "Below"}, KeyPath{"\x81\xFF"}}) {
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
            std::string name = any({"", "0", "1", "2", "10", "Intro", "Tools", "a\"=\"b", "C:\\", "\x81", "\xE4\xF6",
                                    "x", "SmartField1", "SmartField2", "SmartField3", "Creation Date", "CreationDate"});
            if (isOptions && !once(8)) name = optionTable()[below(88)].name;
            if (names.insert(lowerCase(name)).second) key.values.push_back(value(name));
        }
    }
    StoredValue value(const std::string& name) {
        const std::string text = any({"", "0", "1", "2", "-1", "01", "0 1", "1 7", "0  1 ", "yes", "%DOCS%\\a",
                                      "\\\\server\\a.doc", "C:\\a\\b.doc", "a\"b", "a\r\nb", "\xFC\x81", "<!Price!>"});
        if (!once(5)) return textValue(name, text);
        const std::uint32_t type = below(13);
        const bool isText = type == 1 || type == 2 || type == 7;
        return {name, type, once(3) ? "" : text + std::string(1 + below(3), isText ? '\0' : '\x9D')};
    }
    std::mt19937 random_;
};

std::string listing(const Product& product) {
    std::string text = product.id.name + ',' + product.id.key + (product.id.tree == Tree::toolkit ? "" : "!") + '\n';
    for (const StoredKey& key : product.keys) {
        text += '[' + joined(key.path) + "]\n";
        for (const auto& [name, type, data] : key.values) text += name + '=' + std::to_string(type) + ':' + data + '\n';
    }
    return text;
}

std::string listing(const std::vector<Difference>& differences) {
    std::string text;
    for (const auto& [group, what, left, right] : differences) {
        text += std::string(groupName(group)) + ": " + what + ": " + left.value_or("-") + " | " + right.value_or("-") +
                '\n';
    }
    return text;
}

void apply(Registry& registry, const Product& product, Unnamed unnamed = Unnamed::removed) {
    perform(registry, planApply(ProductStore(registry), product, unnamed));
}

std::string applied(const Product& product) {
    MemoryRegistry registry;
    apply(registry, product);
    const ProductStore store(registry);
    EXPECT_EQ(store.list().at(0).name, product.id.name);
    return listing(store.read(product.id));
}

TEST(Product, TravelsThroughStoreAndJsonWithoutLoss) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Product product = Dice(seed).product();
        ASSERT_EQ(applied(product), listing(product)) << seed;
        const std::string json = toJson(product, *western);
        const Product back = fromJson(json, *western);
        ASSERT_EQ(listing(back), listing(product)) << seed << json;
        ASSERT_EQ(toJson(back, *western), json);
    }
}

TEST(Product, ApplyMakesTheStoreWhatTheProductSays) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Dice dice(seed);
        Product a = dice.product();
        Product b = dice.product();
        b.id.tree = a.id.tree;
        MemoryRegistry registry;
        const ProductStore store(registry);
        apply(registry, b);
        const bool isSame = compare(a, b).empty();
        const Plan plan = planApply(store, a, Unnamed::removed);
        const bool onlyDates = std::all_of(plan.begin(), plan.end(), [](const StoreChange& change) {
            return change.kind == StoreChange::Kind::setValue && isCreationDate(change.value.name);
        });
        ASSERT_EQ(onlyDates, isSame) << seed;
        perform(registry, plan);
        ASSERT_EQ(listing(compare(a, store.read(a.id))), "") << seed << listing(b);
        ASSERT_EQ(planApply(store, a, Unnamed::removed).size(), 0u) << seed;
        ASSERT_EQ(store.list().size(), 1u);

        apply(registry, b, Unnamed::kept);
        for (const Difference& d : compare(store.read(b.id), b)) {
            ASSERT_TRUE(!d.right || d.what.starts_with("order")) << seed << listing({d});
        }
        perform(registry, planRemoval(store, a.id));
        ASSERT_TRUE(store.list().empty() && store.leftovers().empty()) << seed;
    }
}

TEST(Product, AnApplyThatIsCutOffIsRepairedByTheNext) {
    Dice dice(7);
    StandardFiles files;
    for (int round = 0; round < 3; ++round) {
        const Product a = dice.product();
        Product b = dice.product();
        b.id.tree = a.id.tree;
        for (int refused = -1, calls = 0; refused < calls; ++refused) {
            MemoryRegistry registry;
            FailingMachine machine(registry, files);
            const ProductStore store(machine);
            apply(registry, b);
            machine.counts = true;
            machine.first = refused;
            machine.last = refused < 0 || dice.once(2) ? refused : 10'000;
            try {
                apply(machine, a);
            } catch (const StoreRefused&) {
                ASSERT_GE(refused, 0);
            }
            if (refused < 0) calls = static_cast<int>(machine.calls.size());
            machine.counts = false;
            ASSERT_EQ(machine.openKeys, 0);
            apply(machine, a);
            ASSERT_EQ(listing(compare(a, store.read(a.id))), "") << refused;
            ASSERT_EQ(store.list().size(), 1u);
        }
    }
}

// ---- Settings files ----

std::string refusal(const std::string& file) {
    try {
        return "read: " + listing(readSettings(file, *western));
    } catch (const Malformed& malformed) {
        return malformed.what();
    }
}

// As the registry editor writes it; in version 5.00 for texts whose bytes are their characters.
std::string editorFile(const Product& product, bool isVersion5) {
    const auto wide = [](const std::string& text) {
        std::string units;
        for (const char c : text) units += {c, '\0'};
        return units;
    };
    const auto escaped = [](const std::string& text) {
        std::string all = "\"";
        for (const char c : text) all += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
        return all + '"';
    };
    const std::string family = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Vrix\\";
    std::string text = isVersion5 ? "Windows Registry Editor Version 5.00\r\n\r\n" : "REGEDIT4\r\n; all\r\n";
    for (const StoredKey& key : product.keys) {
        text +=
            '[' + family + joined(rootPath(product.id)) + (key.path.empty() ? "" : "\\" + joined(key.path)) + "]\r\n";
        for (const auto& [name, type, data] : key.values) {
            text += (name.empty() ? "@" : escaped(name)) + '=';
            const bool isLine =
                type == valuetype::string && !data.empty() &&
                data.substr(0, data.size() - 1).find_first_of(std::string("\r\n\0", 3)) == std::string::npos;
            const bool isText =
                type == valuetype::string || type == valuetype::expandString || type == valuetype::multiString;
            text += isLine ? escaped(data.substr(0, data.size() - 1))
                           : "hex(" + std::string(1, "0123456789abc"[type]) + "):";
            for (const char c : isLine ? "" : isVersion5&& isText ? wide(data) : data) {
                char byte[8];
                std::snprintf(byte, sizeof byte, "%02x,", static_cast<unsigned char>(c));
                text += byte + std::string(text.size() % 7 == 0 ? "\\\r\n  " : "");
            }
            while (text.ends_with(' ') || text.ends_with('\r') || text.ends_with('\n') || text.ends_with('\\'))
                text.pop_back();
            if (text.ends_with(',')) text.pop_back();
            text += "\r\n";
        }
        text += "\r\n";
    }
    text += '[' + family + joined(listPath(product.id.tree)) + "]\r\n" + escaped(product.id.name) + "=\"K\"\r\n\r\n";
    return isVersion5 ? "\xFF\xFE" + wide(text) : text;
}

TEST(SettingsText, OfTheRegistryEditorIsReadByItsRules) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        Product product = Dice(seed).product();
        ASSERT_EQ(refusal(editorFile(product, false)), "read: " + listing(product)) << seed;
        const auto isOdd = [](const std::string& text) { return text.find('\x81') != std::string::npos; };
        std::erase_if(product.keys, [&](const StoredKey& key) { return isOdd(joined(key.path)); });
        for (StoredKey& key : product.keys) {
            std::erase_if(key.values, [&](const StoredValue& value) { return isOdd(value.name) || isOdd(value.data); });
        }
        ASSERT_EQ(refusal(editorFile(product, true)), "read: " + listing(product)) << seed;
    }
}

TEST(SettingsText, ThatIsNotWhatItShouldBeIsRefusedWithItsLine) {
    const std::string head = "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\K]\r\n";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "line 1: this is no settings file"},
        {"REGEDIT5\r\n", "line 1: this is no settings file"},
        {"\xFF\xFE"
         "a",
         "the file holds half a character"},
        {head + "[-HKEY_LOCAL_MACHINE\\Software\\Vrix\\K]\r\n\r\n", "line 4: it deletes a key"},
        {head + "\"a\"=-\r\n\r\n", "line 4: it deletes a value"},
        {head + "[HKEY_CURRENT_USER\\Software\\Vrix\\K]\r\n\r\n", "line 4: the key is not below"},
        {head + "[HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\r\n", "line 4: the key is not below"},
        {head + "[HKEY_LOCAL_MACHINE\\Software\\Vrix\\K\\..\\..\\Other]\r\n\r\n", "read: ,K!\n[]\n[..]\n[..\\..]\n"},
        {head + "[HKEY_LOCAL_MACHINE\\Software\\Vrix\\L]\r\n\r\n", "line 4: the key is not that of the file's one"},
        {head + "[HKEY_LOCAL_MACHINE\\Software\\Vrix]\r\n\"a\"=\"b\"\r\n\r\n", "line 4: the key is not that of"},
        {head + "[HKEY_LOCAL_MACHINE\\Software\\Vrix\\Products]\r\n\"a\"=\"K\"\r\n\"b\"=\"K\"\r\n\r\n",
         "line 4: there is more"},
        {head + "\"a\"=\"b\\c\"\r\n\r\n", "line 4: a backslash stands"},
        {head + "\"a\"=\"b\"c\"\r\n\r\n", "line 4: there is more behind"},
        {head + "\"a\"=\"b\r\nc\"\r\n\r\n", "line 4: the text has no end"},
        {head + "\"a\"=hex:1,\\\r\n", "the file does not end with an empty line"},
        {head + "\"a\"=hex:1,,2\r\n\r\n", "line 4: this is no list of bytes"},
        {head + "\"a\"=dword:123456789\r\n\r\n", "line 4: this is no number"},
        {head + "a\r\n\r\n", "line 4: this is neither"},
        {head + std::string("\"a\"=\"\0\"\r\n\r\n", 11), "line 4: there is a zero byte"},
        {"REGEDIT4\r\n\r\n\"a\"=\"b\"\r\n\r\n", "line 3: the value stands in no section"},
        {"REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\Toolkit]\r\n\r\n", "the file names no Product"},
        {"REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\Products]\r\n\"a\"=\"K\"\r\n\r\n",
         "the file is cut off"}};
    for (const auto& [file, told] : cases) EXPECT_EQ(refusal(file).substr(0, told.size()), told) << file;

    // Cut off at any byte, and with any line taken from another place.
    const std::string file = expected("big.kls");
    for (std::size_t size = 0; size < file.size(); ++size)
        ASSERT_FALSE(refusal(file.substr(0, size)).starts_with("read")) << size;
    const std::string other = editorFile(Dice(1).product(), true);
    for (std::size_t size = 0; size < other.size(); ++size) refusal(other.substr(0, size));
    for (std::size_t at = file.find("\r\n[", 30); at != std::string::npos; at = file.find("\r\n[", at + 1)) {
        ASSERT_FALSE(refusal(std::string(file).insert(at + 2, "[HKEY_LOCAL_MACHINE\\Software\\Vrix\\L]\r\n"))
                         .starts_with("read"));
    }
}

// ---- What the Toolkit leaves ----

// Does anything at the window in front. Texts are such as a file of one line for each can hold.
void work(Walk& walk, Dice& dice) {
    for (int steps = 0; steps < 60 && !walk.windows.ended; ++steps) {
        const std::vector<Control*> controls = walk.user.form().controls();
        Control& target = *controls[dice.below(static_cast<unsigned>(controls.size()))];
        const std::string& name = target.name();
        if (!target.visible() || !target.enabled() || name == "ExitBtn" || name == "SettingsPath") continue;
        const std::string text =
            dice.any({"Intro", "The \"Tools\"", "a\"=\"b", "C:\\a\\b.doc", "\\\\s\\c.doc", "\xE4\\x", " "});
        const ControlKind kind = target.kind();
        if (kind == ControlKind::imageButton) walk.user.press(name);
        if (kind == ControlKind::checkBox) walk.user.check(name, dice.once(2));
        if (kind == ControlKind::textBox) walk.user.type(name, text);
        const auto* box = dynamic_cast<ComboBox*>(&target);
        if (box != nullptr && box->count() > 0)
            walk.user.choose(name, static_cast<int>(dice.below(static_cast<unsigned>(box->count()))));
        const auto* list = dynamic_cast<MarkList*>(&target);
        if (list != nullptr && list->count() > 0)
            walk.user.mark(name, static_cast<int>(dice.below(static_cast<unsigned>(list->count()))), dice.once(2));
    }
}

// The file that the hub of the Toolkit writes; none if that ends the program.
std::string exported(const std::shared_ptr<EmbeddedRegistry>& store) {
    Walk walk(store);
    walk.start().editProduct().user.press("ExportSettingsBtn").type("SettingsPath", walk.path("out")).press("NextBtn");
    return walk.windows.ended ? "" : walk.file("out");
}

TEST(SettingsText, OfWhateverTheToolkitLeavesIsItsOwnAndReadsBack) {
    int same = 0;
    int whole = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        Dice dice(seed);
        const auto left = std::make_shared<MemoryRegistry>();
        Walk(left).createProduct("Manual");
        for (const char* group : {"TopicsBtn", "TopicOrderBtn", "DependenciesBtn", "SmartFieldsBtn", "CoverPagesBtn"}) {
            Walk walk(left);
            walk.start().editProduct().user.press(group);
            work(walk, dice);
        }
        const ProductStore store(*left);
        const Product product = store.read(store.list().at(0));
        ASSERT_EQ(listing(fromJson(toJson(product, *western), *western)), listing(product)) << seed;
        ASSERT_EQ(applied(product), listing(product)) << seed;
        const std::string file = settingsText(*left, product.id);
        const std::string byToolkit = exported(left);
        same += !byToolkit.empty();
        ASSERT_TRUE(byToolkit.empty() || byToolkit == file) << seed;
        const Product back = readSettings(file, *western);
        MemoryRegistry other;
        apply(other, back);
        ASSERT_EQ(settingsText(other, back.id), file) << seed;
        // Unnamed values are lost with the file; one in front of others costs the names behind it their texts.
        bool shifts = false;
        for (const StoredKey& key : product.keys) {
            const StoredValue* unnamed = findValue(&key, "");
            shifts |= unnamed != nullptr && unnamed != &key.values.back();
        }
        if (shifts) continue;
        ++whole;
        for (const Difference& d : compare(product, back)) {
            ASSERT_TRUE(!d.right && (d.what.empty() || d.what == "index of " || d.what.starts_with("row  of")))
                << seed << listing({d});
        }
    }
    EXPECT_GT(same, 20);
    EXPECT_GT(whole, 20);
}

}  // namespace
}  // namespace vrix
