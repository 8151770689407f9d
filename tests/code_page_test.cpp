#include "common/code_page.h"

#include "files.h"
#include "makers/embedded/memory_registry.h"
#include "store/settings_file.h"
#include "test_encoding.h"
#include "walk.h"

namespace vrix {

namespace {

class CodePageTest : public testing::Test {
protected:
    ~CodePageTest() override { useCodePage(1252, westernEncoding()); }
    void choose(unsigned page) {
        encoding_ = testEncoding(page);
        useCodePage(page, *encoding_);
    }
    std::unique_ptr<Encoding> encoding_;
};

// In 932 the second byte of "\x95\x5C" looks like a backslash, that of "\x83\x7C" like a bar, that of "\x83\x41" like
// "A".
const std::string table = "\x95\x5C";

}  // namespace

TEST_F(CodePageTest, FindsCharacterBoundaries) {
    struct Case {
        unsigned page;
        std::string text;
        std::size_t characters;
        std::size_t lastBackslash;  // where it begins
    };
    constexpr auto nowhere = std::string::npos;
    for (const auto& [page, text, characters, lastBackslash] : {
             Case{1252, "\x95\\", 2, 1},
             Case{932, "\x95\\", 1, nowhere},
             Case{932, "\xB1\\", 2, 1},          // half-width kana are single bytes
             Case{932, "\\\x95\\\\\xE0", 4, 3},  // a lead byte at the end is one character
             Case{936, "\x81\\\xFE\\\\", 3, 4},
             Case{949, "\x81\\\xFF\\", 3, 3},
             Case{1361, "\x84\\\xD8\\\xF9\\\xFA\\", 5, 7},
             Case{950, "\xA5\\\x80\\", 3, 3},
             Case{65001, "\xE8\xA1\xA8\\", 2, 3},
             Case{65001, "\xE8\xA1\\", 3, 2},
             Case{65001, "\xF0\x9F\x98\x80\xC3\xA9\x80", 3, nowhere},
         }) {
        choose(page);
        EXPECT_EQ(characterCount(text), characters) << page << ' ' << text;
        EXPECT_EQ(findLastCharacter(text, '\\'), lastBackslash) << page << ' ' << text;
        EXPECT_EQ(characterStart(text, characters + 1), text.size());
    }
    choose(932);
    EXPECT_EQ(lowerCase("A\x83\x41Z\xC0"), "a\x83\x41z\xC0");
    EXPECT_EQ(wholeCharacters("\x95\\\xB1\x83"), "\x95\\\xB1?");
    choose(65001);
    EXPECT_EQ(wholeCharacters("\x80 \xE8\xA1\xA8\xE8\xA1"), "? \xE8\xA1\xA8??");
    choose(1252);
    EXPECT_EQ(lowerCase("A\xC9\xD7\x8A\x9F\x81"), "a\xE9\xD7\x9A\xFF\x81");
}

TEST_F(CodePageTest, TrailBytesAreNotTakenForBackslashes) {
    choose(932);
    for (const auto& [path, escaped] : std::map<std::string, std::string>{
             {"C:\\" + table, "C:\\\\" + table},
             {"C:\\" + table + "\\a.doc", "C:\\\\" + table + "\\\\a.doc"},
             {table + "\\\\" + table + "\\x", "\\\\\\\\" + table + "\\\\x"},
             {"\\\\" + table, "\\\\\\\\" + table},
             {"\x83\x7C\x95", "\x83\x7C\x95"},
         }) {
        EXPECT_EQ(escapedPath(path), escaped) << path;
    }
    MemoryRegistry registry;
    RegistryKey key = 0;
    ASSERT_EQ(registry.createKey(hive::localMachine, "Software\\" + table + "\\K", 63, key), RegistryStatus::success);
    EXPECT_EQ(registry.deleteKey(hive::localMachine, "SOFTWARE\\\x95\x7C"), RegistryStatus::fileNotFound);
    EXPECT_EQ(registry.deleteKey(hive::localMachine, "SOFTWARE\\" + table + "\\k"), RegistryStatus::success);
    EXPECT_EQ(registry.createKey(hive::localMachine, "Software\\" + std::string(500, '\x95'), 63, key),
              RegistryStatus::success);  // of 250 characters
}

TEST_F(CodePageTest, TopicsAndSmartFieldsAreSplitAtCharacterBoundaries) {
    choose(932);
    Walk walk;
    walk.start().createTo("Create8");
    writeBytes(walk.path("list"), table + ":\x83\x41" + "B\r\nHalf:\x95\r\n");
    walk.pages.create8.ImportFile(walk.path("list"));
    EXPECT_EQ(walk.pages.create8.TopicNames.at(0), table);
    EXPECT_TRUE(walk.pages.create8.TopicPaths.at(0).ends_with("\x83\x41\x62.doc"));
    EXPECT_TRUE(walk.pages.create8.TopicPaths.at(1).ends_with("?.doc"));

    walk.pages.create19.SmartFields.addItem(table + table + "ab" + table);
    walk.pages.create19.SmartFields.setListIndex(0);
    EXPECT_EQ(walk.text("Create19", "SmartFieldText"), "a");
    walk.pages.create19.SmartFields.addItem(table + "ab");  // three characters have no delimiters
    EXPECT_THROW(walk.pages.create19.SmartFields.setListIndex(1), RuntimeFailure);
}

}  // namespace vrix
