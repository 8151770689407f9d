#include "makers/posix/posix_texts.h"

#include <array>

#include "common/code_page.h"
#include "common/utf8.h"
#include "registry_suite.h"
#include "vrix/vrix.h"

namespace vrix {

namespace {

struct NoConsole final : Console {
    bool isAttended() override { return false; }
    std::string readLine() override { return {}; }
    std::string readAll() override { return {}; }
    void write(const std::string& text) override { out += text; }
    void writeError(const std::string& text) override { out += text; }
    bool flush() override { return true; }
    std::string out;
};

class SystemTexts : public testing::Test {
protected:
    void SetUp() override { useSystemTexts(); }
    void TearDown() override {
        useCodePage(1252, westernEncoding());
        useLetterFolder(nullptr);
    }
    std::string run(std::vector<std::string> arguments) {
        NoConsole console;
        arguments.insert(arguments.begin(), {"--store", path});
        const int code = runVrix(arguments, console, systemMachine());
        return std::to_string(code) + '|' + console.out;
    }
    std::string stored() { return listing(*openedJournal(path), hive::localMachine); }

    TemporaryFolder folder;
    const std::string path = folder.path("store.journal");
};

}  // namespace

TEST_F(SystemTexts, ProductsAreFoundInAnyCaseOfTheirNames) {
    const std::string file = folder.path("x.json");
    for (const auto& [name, key, other] :
         {std::array{"Руководство", "Ключ", "toolkit:КЛЮЧ"}, std::array{"Ελλάδα", "Κλειδί", "ΕΛΛΆΔΑ"}}) {
        writeBytes(file, std::string(R"({"name": ")") + name + R"(", "key": ")" + key + R"(", "tree": "toolkit"})");
        EXPECT_EQ(run({"apply", file})[0], '0');
        EXPECT_NE(run({"show", other}).find(key), std::string::npos) << run({"show", other});
        const std::string before = stored();
        EXPECT_EQ(run({"remove", other, "--yes"})[0], '0');
        EXPECT_EQ(stored().find(key), std::string::npos);
        EXPECT_NE(before, stored());
    }
}

// Names that this system's case folding makes equal, and another's keeps apart.
TEST_F(SystemTexts, AJournalReadsTheSameWithAnyCaseFolding) {
    using enum Do;
    useLetterFolder(nullptr);
    {
        const auto registry = openedJournal(path);
        Caller caller(*registry);
        for (const Call& call : {Call{make, "Я\\x"}, Call{make, "я", "0", 0, 63, 1}, Call{set, "Ж", "0", 1, 3, 0, "1"},
                                 Call{set, "ж", "0", 1, 3, 0, "2"}, Call{set, "Ю", "0", 1}, Call{set, "ю", "0", 1},
                                 Call{erase, "Ю", "0", 1}, Call{erase, "ю", "0", 1}, Call{remove, "Я\\x"},
                                 Call{remove, "Я"}, Call{make, "Я\\y", "0", 0, 63, 1}}) {
            EXPECT_EQ(caller.answer(call), call.answer) << call.text;
        }
    }
    const std::string written = stored();
    useSystemTexts();
    EXPECT_EQ(stored(), written);
    {
        const auto registry = openedJournal(path);
        Caller caller(*registry);
        EXPECT_EQ(caller.answer({open, "я", "0", 0, 63, 1}), "0");
        EXPECT_EQ(caller.answer({query, "Ж", "", 1}), "0 3 1");
        EXPECT_EQ(caller.answer({query, "ж", "", 1}), "0 3 2");
        EXPECT_EQ(caller.answer({make, "ЯЯ\\x"}), "0");
        EXPECT_EQ(caller.answer({set, "Ж", "0", 1, 3, 0, "3"}), "0");
        EXPECT_EQ(caller.answer({remove, "яя\\X"}), "0");
        EXPECT_EQ(caller.answer({open, "яЯ", "0", 0, 63, 2}), "0");
        EXPECT_EQ(caller.answer({set, "Ы", "0", 2}), "0");
        EXPECT_EQ(caller.answer({set, "ы", "0", 2, 3, 0, "4"}), "0");
    }
    const std::string grown = stored();
    EXPECT_NE(grown, written);
    useLetterFolder(nullptr);
    EXPECT_EQ(stored(), grown);
}

}  // namespace vrix
