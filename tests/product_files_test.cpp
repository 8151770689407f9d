#include "product/encoded_text.h"
#include "product/json/product_json.h"
#include "product/settings_text.h"
#include "product_dice.h"

namespace vrix {
namespace {

// ---- Settings files ----

std::string refusal(const std::string& file, unsigned codePage = 1252) {
    try {
        return "read: " + listing(readSettings(file, *testEncoding(codePage)));
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

// UTF-16, little endian.
std::string wide(const std::string& text) {
    std::string bytes;
    for (const char16_t unit : toUtf16(text)) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

// What the registry editor writes, as text.
std::string editorText(const Product& product, bool isVersion5) {
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
            for (const char c : isLine ? "" : isText ? (isVersion5 ? wide(data) : *western->fromUtf8(data)) : data) {
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
    return text;
}

TEST(SettingsText, OfTheRegistryEditorIsReadByItsRules) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        Product product = Dice(seed).product();
        ASSERT_EQ(refusal("\xFF\xFE" + wide(editorText(product, true))), "read: " + listing(product)) << seed;
        const auto isOdd = [](const std::string& text) { return !western->fromUtf8(text); };
        std::erase_if(product.keys, [&](const StoredKey& key) { return isOdd(joined(key.path)); });
        for (StoredKey& key : product.keys) {
            std::erase_if(key.values, [&](const StoredValue& value) {
                return isOdd(value.name) || (valuetype::isText(value.type) && isOdd(value.data));
            });
        }
        ASSERT_EQ(refusal("\xEF\xBB\xBF" + editorText(product, true)), "read: " + listing(product)) << seed;
        const std::string file = encodedSettings(editorText(product, false), *western);
        ASSERT_EQ(refusal(file), "read: " + listing(product)) << seed;
    }
}

TEST(SettingsText, IsEncodedExactlyOrRefused) {
    const auto told = [](const std::string& topic, const std::string& path, unsigned codePage) {
        Product product = readSettings(expected("sample.kls"), *western);
        product.at(part::topics).values.push_back(textValue(topic, path));
        product.at(part::indexTable).values.push_back(textValue(topic, "2"));
        EmbeddedRegistry store;
        apply(store, product);
        const auto encoding = testEncoding(codePage);
        try {
            const std::string file = encodedSettings(settingsText(store, product.id), *encoding);
            return listing(compare(readSettings(file, *encoding), ProductStore(store).read(product.id)));
        } catch (const Refusal& refusal) {
            return std::string(refusal.what());
        }
    };
    EXPECT_EQ(told("Größe", "C:\\ä.doc", 1252), "");
    EXPECT_EQ(told("表", "C:\\表\\ソ.doc", 932), "");
    EXPECT_EQ(told("Жук", "C:\\表\\😀.doc", 65001), "");
    const std::string advice = "; a JSON file keeps it";
    EXPECT_EQ(told("Жук", "C:\\a", 932), "");
    EXPECT_EQ(told("Größe", "C:\\a", 932), "\"Größe\": the code page lacks the character \"ö\" (U+00F6)" + advice);
    EXPECT_EQ(told("A", "C:\\Жук", 1252), "\"A\": the code page lacks the character \"Ж\" (U+0416)" + advice);
    EXPECT_EQ(told("A", half, 65001), "\"A\": the code page lacks half a character (U+D800)" + advice);
}

TEST(SettingsText, MalformedIsRefusedWithItsLine) {
    const std::string head = "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\K]\r\n";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "line 1: this is no settings file"},
        {"REGEDIT5\r\n", "line 1: this is no settings file"},
        {"\xFF\xFE"
         "a",
         "the file is cut off within a character"},
        {"\xEF\xBB\xBFREGEDIT4\r\n\xFF", "line 2: this is no UTF-8"},
        {"\xFE\xFF\1\1", "line 1: this is no settings file"},
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
        {head + std::string("\"a\"=\"\0\"\r\n\r\n", 11), "line 4: there is a zero character"},
        {"REGEDIT4\r\n\r\n\"a\"=\"b\"\r\n\r\n", "line 3: the value stands in no section"},
        {"REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\Toolkit]\r\n\r\n", "the file names no Product"},
        {"REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vrix\\Products]\r\n\"a\"=\"K\"\r\n\r\n",
         "the file is cut off"}};
    for (const auto& [file, told] : cases) EXPECT_EQ(refusal(file).substr(0, told.size()), told) << file;

    EXPECT_EQ(refusal(head + "\"\x95\x5C\"=\"\x95\"\r\n\r\n", 932),
              "line 4: a byte stands for no character of the code page");

    // Truncated at any byte, and with any line replaced by another.
    const std::string file = expected("big.kls");
    for (std::size_t size = 0; size < file.size(); ++size)
        ASSERT_FALSE(refusal(file.substr(0, size)).starts_with("read")) << size;
    std::string unixFile = file;
    std::erase(unixFile, '\r');
    EXPECT_EQ(refusal(unixFile), refusal(file));
    const std::string other = "\xFF\xFE" + wide(editorText(Dice(1).product(), true));
    for (std::size_t size = 0; size < other.size(); ++size) refusal(other.substr(0, size));
    for (std::size_t at = file.find("\r\n[", 30); at != std::string::npos; at = file.find("\r\n[", at + 1)) {
        ASSERT_FALSE(refusal(std::string(file).insert(at + 2, "[HKEY_LOCAL_MACHINE\\Software\\Vrix\\L]\r\n"))
                         .starts_with("read"));
    }
}

// ---- What the Toolkit leaves ----

// Performs a random action at the front window. Texts are such as a file of one line for each can hold.
void work(Walk& walk, Dice& dice) {
    for (int steps = 0; steps < 60 && !walk.windows.ended; ++steps) {
        const std::vector<Control*> controls = walk.user.form().controls();
        Control& target = *controls[dice.below(static_cast<unsigned>(controls.size()))];
        const std::string& name = target.name();
        if (!target.visible() || !target.enabled() || name == "ExitBtn" || name == "SettingsPath") continue;
        const std::string text =
            dice.any({"Intro", "The \"Tools\"", "a\"=\"b", "C:\\a\\b.doc", "\\\\s\\c.doc", "\xE4\\x", " "});
        if (dynamic_cast<ImageButton*>(&target) != nullptr) walk.user.press(name);
        if (dynamic_cast<CheckBox*>(&target) != nullptr) walk.user.check(name, dice.once(2));
        if (dynamic_cast<TextBox*>(&target) != nullptr) walk.user.type(name, text);
        const auto* box = dynamic_cast<ComboBox*>(&target);
        if (box != nullptr && box->count() > 0) walk.user.choose(name, dice.row(box->count()));
        const auto* list = dynamic_cast<MarkList*>(&target);
        if (list != nullptr && list->count() > 0) walk.user.mark(name, dice.row(list->count()), dice.once(2));
    }
}

TEST(SettingsText, EqualsTheExportOfAnyEditedProductAndReadsBack) {
    int same = 0;
    int whole = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        Dice dice(seed);
        const auto left = std::make_shared<EmbeddedRegistry>();
        Walk(left).createProduct("Manual");
        for (const char* group : {"TopicsBtn", "TopicOrderBtn", "DependenciesBtn", "SmartFieldsBtn", "CoverPagesBtn"}) {
            Walk walk(left);
            walk.start().editProduct().user.press(group);
            work(walk, dice);
        }
        const ProductStore store(*left);
        const Product product = store.read(store.list().at(0));
        ASSERT_EQ(listing(fromJson(toJson(product))), listing(product)) << seed;
        ASSERT_EQ(applied(product), listing(product)) << seed;
        const std::string file = encodedSettings(settingsText(*left, product.id), *western);
        const std::string byToolkit = exported(left);
        same += !byToolkit.empty();
        ASSERT_TRUE(byToolkit.empty() || byToolkit == file) << seed;
        const Product back = readSettings(file, *western);
        EmbeddedRegistry other;
        apply(other, back);
        ASSERT_EQ(encodedSettings(settingsText(other, back.id), *western), file) << seed;
        // Unnamed values are lost with the file; one in front of others costs the names behind it their texts.
        bool shifts = false;
        for (const StoredKey& key : product.keys) {
            const StoredValue* unnamed = findValue(key.values, "");
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
