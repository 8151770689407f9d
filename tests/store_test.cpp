#include "common/runtime_failure.h"
#include "store/cregistry.h"
#include "walk.h"

namespace vrix {
namespace {

class StoreTest : public testing::Test {
protected:
    Walk walk;
    cRegistryFunctions& settings = walk.pages.settings;

    // Puts a value of any type, past the store.
    void putRaw(const std::string& section, const std::string& name, std::uint32_t type, std::string bytes) {
        RegistryKey key = 0;
        ASSERT_EQ(walk.registry.createKey(hive::localMachine, "Software\\Vrix\\" + section, access::change, key),
                  RegistryStatus::success);
        EXPECT_EQ(walk.registry.setValue(key, name, type, bytes), RegistryStatus::success);
        walk.registry.closeKey(key);
    }
    cRegistry cursor(const std::string& value) {
        cRegistry result(walk.registry);
        result.ClassKey = hive::localMachine;
        result.SectionKey = "Software\\Vrix\\S";
        result.ValueKey = value;
        return result;
    }
    std::uint32_t typeOf(const std::string& value) {
        cRegistry found = cursor(value);
        found.Value();
        return static_cast<std::uint32_t>(found.ValueType);
    }
};

TEST_F(StoreTest, TextsWithTwoPercentSignsApartAreStoredExpandable) {
    const std::vector<std::tuple<std::string, std::uint32_t, std::string>> cases{
        {"plain", 1, "plain"},         {"100%", 1, "100%"},     {"%%", 1, "%%"},     {"%DOCS%", 2, "C:\\Docs"},
        {"a%DOCS%b", 2, "aC:\\Docsb"}, {"%NONE%", 2, "%NONE%"}, {"%%x%", 2, "%%x%"}, {"5% of 10%", 2, "5% of 10%"},
    };
    for (const auto& [text, type, read] : cases) {
        settings.SaveSetting(application, "S", "v", text);
        EXPECT_EQ(typeOf("v"), type) << text;
        EXPECT_EQ(settings.GetSetting(application, "S", "v", "?"), read) << text;
    }
}

TEST_F(StoreTest, ReadsEveryTypeAsText) {
    using namespace std::string_literals;
    putRaw("S", "none", 1, "");
    putRaw("S", "terminator", 1, "\0"s);
    putRaw("S", "multi", 7, "a\0b\0\0"s);
    putRaw("S", "number", 4, "\xFE\xFF\xFF\xFF"s);
    putRaw("S", "big", 5, "\x00\x00\x01\x02"s);
    putRaw("S", "binary", 3, "\x01\x02"s);
    const std::vector<std::pair<std::string, std::string>> cases{
        {"none", "x"},    {"terminator", "x"}, {"missing", "x"},          {"multi", "a\0b\0"s},
        {"number", "-2"}, {"big", "258"},      {"binary", "\x01\x02\0"s},
    };
    for (const auto& [name, text] : cases) EXPECT_EQ(settings.GetSetting(application, "S", name, "x"), text) << name;
    putRaw("S", "number of 64 bits", 4, "\1\2\3\4\5\6\7\b");
    const SettingsTable table = settings.GetAllSettings(application, "S");
    ASSERT_EQ(table.cellCount(), 14);
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(table.text(row), settings.GetSetting(application, "S", table.name(row), ""));
}

TEST_F(StoreTest, TheCursorWritesByItsTypeAndKeepsWhatItFound) {
    cRegistry value = cursor("v");
    value.ValueType = 6;
    value.Value(std::string("text"));
    EXPECT_EQ(walk.tree(), "[]\n[S]\n");  // nothing stored, but the key was made
    value.ValueType = 4;
    value.Value(std::string("text"));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(value.Value()));
    value.Value(std::int16_t{7});
    value.ValueType = 1;
    EXPECT_EQ(std::get<std::int32_t>(value.Value()), 7);
    EXPECT_EQ(value.ValueType, 4);
    value.ValueType = 3;
    value.Value(std::vector<std::uint8_t>{1, 2, 3, 0});
    EXPECT_EQ(std::get<std::vector<std::uint8_t>>(value.Value()), (std::vector<std::uint8_t>{1, 2, 0}));
    value.Value(value.Value());  // each write drops a byte
    EXPECT_EQ(std::get<std::vector<std::uint8_t>>(value.Value()), (std::vector<std::uint8_t>{1, 0}));
    value.Value(std::vector<std::uint8_t>{9});  // too short to be written
    EXPECT_EQ(std::get<std::vector<std::uint8_t>>(value.Value()), (std::vector<std::uint8_t>{1, 0}));
    value.ValueType = 1;
    value.Value(std::string());
    EXPECT_EQ(std::get<std::string>(value.Value()), "");
    value.Default = std::string("default");
    EXPECT_TRUE(value.DeleteValue());
    EXPECT_FALSE(value.DeleteValue());
    EXPECT_EQ(std::get<std::string>(value.Value()), "default");
}

TEST_F(StoreTest, AnUnnamedValueShiftsTheTextsBehindIt) {
    EXPECT_FALSE(settings.GetAllSettings(application, "S").isTable());
    for (const char* name : {"a", "", "b", "c"}) walk.put("S", name, std::string("of ") + name);
    const SettingsTable table = settings.GetAllSettings(application, "S");
    ASSERT_EQ(table.cellCount(), 6);
    EXPECT_EQ(table.name(0) + '=' + table.text(0), "a=of a");
    EXPECT_EQ(table.name(1) + '=' + table.text(1) + table.name(2) + '=' + table.text(2), "=of bb=of c");
    walk.put("U", "", "alone");
    EXPECT_EQ(ignoring([&] { settings.GetAllSettings(application, "U"); }), FailureNumber::subscript);
    EXPECT_EQ(ignoring([&] { table.name(3); }), FailureNumber::subscript);
    EXPECT_EQ(ignoring([] { SettingsTable().cellCount(); }), FailureNumber::typeMismatch);
}

TEST_F(StoreTest, DeletesOneValueOrAKeyWithoutSubkeys) {
    walk.put("A\\B", "v", "1");
    settings.DeleteSetting(application, "A", "");
    EXPECT_EQ(walk.tree("A"), "[A]\n[A\\B]\nv=1\n");
    settings.DeleteSetting(application, "A\\B", "V");  // names are found without regard to case
    settings.DeleteSetting(application, "A\\B", "");
    settings.DeleteSetting(application, "A\\B", "");
    settings.DeleteSetting("", "", "");
    EXPECT_EQ(walk.tree(), "[]\n[A]\n");
    settings.DeleteSetting(application, "A", "");
    settings.DeleteSetting(application, "", "");
    EXPECT_EQ(walk.tree(), "");
}

TEST_F(StoreTest, FileTypesAreRegisteredWithTheirVerbs) {
    cRegistry classes(walk.registry);
    const auto add = [&](const std::string& name, const std::vector<std::string>& verb) {
        classes.ClassKey = hive::classesRoot;
        classes.CreateAdditionalEXEAssociations(name, verb);
    };
    classes.CreateEXEAssociation({" C:\\v ", "V.Doc", "Vrix document", "vdc", "", true, "", true, "", true, "", 2});
    EXPECT_EQ(classes.ClassKey, hive::localMachine);
    classes.CreateEXEAssociation({"\"w", "W", "", "w", "Open", true, "Print", true, "New", true, "Install", 0});
    classes.CreateEXEAssociation({"\"x\"", "X", "", "x"});
    add("V.Doc", {"mail", "&Mail", "m.exe", "odd"});
    add("V.None", {"mail", "&Mail", "m.exe"});
    add("X", {"mail", "&Mail", "m.exe", "fax", "&Fax", "f.exe"});
    EXPECT_EQ(walk.tree("", "Software\\Classes\\"), expected("classes.tree"));
    std::vector<std::string> verbs;
    std::int32_t count = 0;
    classes.ClassKey = hive::classesRoot;
    classes.SectionKey = "V.Doc\\shell";
    EXPECT_TRUE(classes.KeyExists() && classes.EnumerateSections(verbs, count) && count == 4);
    EXPECT_EQ(verbs, (std::vector<std::string>{"open", "print", "add", "new"}));
    classes.SectionKey = "V.None";
    EXPECT_FALSE(classes.KeyExists());
    EXPECT_TRUE(classes.EnumerateSections(verbs, count) && count == 0 && verbs.empty());
    EXPECT_TRUE(classes.CreateKey() && classes.KeyExists());
}

TEST_F(StoreTest, CountsProductsByTheirFilledCells) {
    ProductReg& reg = walk.pages.productReg;
    const auto counts = [&] {
        reg.GetProducts();
        return std::to_string(reg.CountProducts) + '/' + std::to_string(reg.DevelopCountProducts);
    };
    EXPECT_EQ(counts(), "0/0");
    walk.put("Toolkit\\Products", "D", "d");
    EXPECT_EQ(counts(), "1/1");
    walk.put("Products", "I", "i");
    walk.put("Products", "J", "j");
    EXPECT_EQ(counts(), "3/1");
    walk.put("Products", "K", "");
    EXPECT_EQ(counts(), "4/1");  // 7 cells, half of it, rounded to even
    settings.DeleteSetting(application, "Toolkit\\Products", "");
    EXPECT_EQ(counts(), "2/0");  // 5 cells
    EXPECT_FALSE(reg.DevelopSomeProducts);
}

}  // namespace
}  // namespace vrix
