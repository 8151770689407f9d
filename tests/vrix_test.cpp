#include "vrix/vrix.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

#include "common/utf8.h"
#include "test_system.h"

namespace vrix {
TEST_F(Vrix, RestoresAProductFromEachFormat) {
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    const std::string whole = host.tree();
    EXPECT_EQ(code({"export", "Sample Manual", "kept.kls"}), '0');
    EXPECT_EQ(code({"export", "toolkit:samplekey", "kept.json"}), '0');
    EXPECT_EQ(code({"export", "kept.json", "again.kls"}), '0');
    EXPECT_EQ(bytesOf("again.kls"), bytesOf("kept.kls"));
    for (const std::vector<std::string>& back : {std::vector<std::string>{"apply", "sample.kls"},
                                                 {"apply", "kept.json"},
                                                 {"restore", "latest"},
                                                 {"restore", "latest", "SampleKey"}}) {
        EXPECT_EQ(code({"remove", "SampleKey", "--yes"}), '0');
        EXPECT_EQ(host.tree().find("SampleKey"), std::string::npos);
        EXPECT_EQ(code(back), '0') << back[1];
        EXPECT_EQ(host.tree(), whole) << back[1];
        EXPECT_EQ(run({"compare", "SampleKey", "sample.kls"}), "0|No differences.\n");
    }
    EXPECT_EQ(code({"--store", latest(), "show", "SampleKey"}), '3');  // as it was before the last restore
    write("AllowNoTOC", "1");
    EXPECT_EQ(run({"compare", "sample.kls", "SampleKey"}), "1|options\n  - AllowNoTOC = 0\n  + AllowNoTOC = 1\n");
    EXPECT_EQ(run({"apply", "kept.json", "--dry-run"}),
              "0|kept.json: \"Sample Manual\" (toolkit:SampleKey):\n"
              "  set Toolkit\\SampleKey\\Options\\AllowNoTOC = 0 (was 1)\n1 change to make; nothing was written.\n");
    const std::string edited = host.tree();
    EXPECT_EQ(code({"apply", "kept.json"}), '0');
    EXPECT_EQ(host.tree(), whole);
    EXPECT_EQ(run({"apply", "kept.kls"}), "0|kept.kls: \"Sample Manual\" (toolkit:SampleKey): nothing to change\n");
    EXPECT_EQ(code({"--store", "latest", "export", "SampleKey", "backup.json"}), '0');
    EXPECT_EQ(code({"apply", "backup.json"}), '0');
    EXPECT_EQ(host.tree(), edited);
}

TEST_F(Vrix, GivesTheExitCodeAndTheReason) {
    writeBytes("bad.kls", "REGEDIT4\n");
    writeBytes("bad.json", "{\"key\": \"K\", \"colour\": 1}");
    writeBytes("x.json", "{\"name\": \"Sample Manual\", \"key\": \"X\", \"tree\": \"installed\"}");
    EXPECT_EQ(code({"apply", "sample.kls", "x.json"}), '0');
    struct Case {
        std::vector<std::string> arguments;
        char code;
        std::string said;
    };
    for (const auto& [arguments, expected, said] : std::vector<Case>{
             {{"list", "--json"}, '0', "\"key\": \"SampleKey\""},
             {{"--version"}, '0', "vrix "},
             {{"restore", "--help"}, '0', "vrix restore latest"},
             {{"check", "--explain", "missing-option"}, '0', "missing-option (error)"},
             {{"check", "sample.kls"}, '0', "Nothing was found."},
             {{"check", "x.json"}, '1', "error missing-option: X\\Options\\AllowNoTOC"},
             {{"compare", "sample.kls", "x.json"}, '1', "+ key = X"},
             {{"show", "X", "--no-such"}, '2', "--no-such"},
             {{"show", "Sample Manual"}, '2', "any of \"Sample Manual\" (installed:X), \"Sample Manual\" (toolkit:"},
             {{"remove", "X"}, '2', "--yes"},
             {{"apply", "sample.kls", "sample.kls"}, '2', "both for"},
             {{"show", "installed:SampleKey"}, '3', "neither a Product nor a file"},
             {{"--store", "none.journal", "list"}, '3', "none.journal"},
             {{"restore", "none"}, '3', "no backup \"none\""},
             {{"export", "X", "full/x.kls"}, '4', "full/x.kls"},
             {{"--code-page", "7", "apply", "sample.kls"}, '2', "no code page 7"},
             {{"--store", "no\xE9UTF-8", "list"}, '3', "no\\xe9UTF-8"},
             {{"--store", "no\xE9UTF-8", "dsc", "export"}, '3', "no\xEF\xBF\xBDUTF-8"},
             {{"dsc", "get", "--input", "{\"key\":\"X\",\"file\":\"\xE6\x97\xA5\"}"},
              '3',
              "{\"error\":\"there is no file"},
             {{"apply", "bad.kls"}, '5', "bad.kls: the file does not end"},
             {{"apply", "bad.json"}, '5', "bad.json: /colour"},
             {{"apply", "sample.kls", "bad.json", "--json"}, '5', "bad.json"},
         }) {
        const std::string answer = run(arguments);
        EXPECT_EQ(answer[0], expected) << answer;
        EXPECT_NE(answer.find(said), std::string::npos) << answer;
    }
    host.wide.answer = RegistryStatus::accessDenied;
    writeBytes("x.json", "{\"name\": \"Renamed\", \"key\": \"X\", \"tree\": \"installed\"}");
    EXPECT_EQ(run({"apply", "x.json"}).substr(0, 17), "4|x.json: \"Rename");
    EXPECT_NE(host.err.find("administrator rights"), std::string::npos) << host.err;
    host.hasRegistry = false;
    EXPECT_EQ(code({"list"}), '2');
    EXPECT_EQ(code({"check", "sample.kls"}), '0');
}

TEST_F(Vrix, ChangesNoJournalThatItOnlyReadsOrThatIsLocked) {
    const std::string path = std::string("store.journal");
    EXPECT_EQ(code({"apply", "sample.kls", "--dry-run", "--store", path}), '0');
    EXPECT_FALSE(std::filesystem::exists(path));
    host.disk_.syncs = false;
    EXPECT_EQ(code({"apply", "sample.kls", "--store", path}), '4');
    EXPECT_EQ(host.out.find("changes made"), std::string::npos);
    host.disk_.syncs = true;
    EXPECT_EQ(code({"apply", "sample.kls", "--store", path}), '0');
    const std::string torn = bytesOf(path) + "\x01";
    writeBytes(path, torn);
    host.disk_.isFree = false;
    EXPECT_EQ(code({"list", "--store", path}), '0');
    EXPECT_EQ(run({"remove", "SampleKey", "--yes", "--store", path}).substr(0, 1), "4");
    EXPECT_NE(host.err.find("is in use by another program"), std::string::npos);
    EXPECT_EQ(bytesOf(path), torn);
}

TEST_F(Vrix, KeepsABackupBeforeItWritesAndTheNewestTwenty) {
    const auto count = [&] {
        run({"backups", "--json"});
        return nlohmann::json::parse(host.out).size();
    };
    EXPECT_EQ(code({"apply", "sample.kls", "--no-backup"}), '0');
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    EXPECT_EQ(count(), 0u);
    for (int i = 0; i < 25; ++i) {
        write("DefaultCourseName", std::to_string(i));
        EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    }
    EXPECT_EQ(count(), 20u);
    writeBytes("x.json", "{\"name\": \"X\", \"key\": \"X\"}");
    EXPECT_EQ(code({"apply", "x.json", "--no-backup"}), '0');
    EXPECT_NE(run({"backups"})
                  .find("\n  changed since: \"Sample Manual\" (toolkit:SampleKey)\n  added since: \"X\" "
                        "(toolkit:X)\n"),
              std::string::npos)
        << host.out;
    EXPECT_EQ(code({"restore", "latest", "--no-backup"}), '0');
    EXPECT_EQ(code({"show", "X"}), '3');
    std::filesystem::remove_all(host.temporary.path("data/Vrix Toolkit Backups (64-bit)"));
    host.hasLocalData = false;
    const std::string whole = host.tree();
    EXPECT_EQ(code({"apply", "x.json"}), '4');
    EXPECT_NE(host.err.find("--no-backup"), std::string::npos) << host.err;
    EXPECT_EQ(host.tree(), whole);
}

TEST_F(Vrix, RestoresRowsThatShareAKeyOrHaveNoneAndProductsInOneAnother) {
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    for (const char* key : {"SampleKey", "SampleKey\\Options", ""}) {
        write("Odd" + std::string(key), key, "Toolkit\\Products");
    }
    const std::string whole = host.tree();
    writeBytes("x.json", "{\"name\": \"X\", \"key\": \"X\"}");
    EXPECT_EQ(code({"apply", "x.json"}), '0');
    const std::string backup = latest();
    write("AllowNoTOC", "9");
    write("Sample Manual", "Elsewhere", "Toolkit\\Products");
    EXPECT_EQ(code({"restore", backup}), '0');
    EXPECT_EQ(host.tree(), whole);
    EXPECT_EQ(run({"restore", backup}).find(" made."), std::string::npos) << host.out;
}

TEST_F(Vrix, KeepsTextsThatTheCodePageLacks) {
    const std::string half = "\xED\xA0\x80";
    writeBytes("x.json",
               R"({"name": "日本 Manual", "key": "Ключ", "topics": [{"name": "目次", "file": "C:\\д\\目次.doc"}]})");
    EXPECT_EQ(code({"apply", "x.json"}), '0');
    EXPECT_EQ(run({"export", "Ключ", "x.kls"}).substr(0, 1), "5");
    EXPECT_NE(host.err.find("JSON"), std::string::npos) << host.err;
    EXPECT_EQ(code({"--code-page", "932", "export", "Ключ", "x.kls"}), '0');
    EXPECT_EQ(run({"--code-page", "932", "compare", "Ключ", "x.kls"}).find("目次"), std::string::npos) << host.out;
    write("目次" + half, "д" + half, "Toolkit\\Ключ\\Topics");
    const std::string whole = host.tree();
    EXPECT_NE(run({"show", "日本 Manual"}).find("目次"), std::string::npos);
    EXPECT_EQ(run({"list", "--json"})[0], '0');
    EXPECT_EQ(code({"export", "Ключ", "half.json"}), '0');
    EXPECT_NE(run({"apply", "half.json"}).find("nothing to change"), std::string::npos) << host.out;
    EXPECT_EQ(code({"remove", "Ключ", "--yes"}), '0');
    for (const std::vector<std::string>& back :
         {std::vector<std::string>{"apply", "half.json"}, {"restore", "latest"}}) {
        EXPECT_EQ(code(back), '0') << host.err;
        EXPECT_EQ(host.tree(), whole);
        EXPECT_EQ(code({"remove", "Ключ", "--yes"}), '0');
    }
    host.takesOutput = false;
    EXPECT_EQ(code({"list"}), '4');
}

TEST_F(Vrix, PrintsLinesOfWholeCharactersWhateverTheStoreHolds) {
    std::mt19937 random(18);
    const auto text = [&] {
        std::string bytes = random() % 2 == 0 ? "\xED\xB0\x80" : "";
        for (int i = 0; i < 6; ++i) bytes += static_cast<char>(1 + random() % 255);
        std::erase(bytes, '\\');
        return bytes;
    };
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    std::vector<std::string> keys;
    for (int i = 0; i < 30; ++i) {
        keys.push_back(text() + std::to_string(i));
        write("N" + keys.back(), keys.back(), "Toolkit\\Products");
        for (const char* section : {"", "\\Options", "\\Topics", "\\Dependencies\\Matrix", "\\SmartFields"}) {
            const std::string path = "Toolkit\\" + keys.back() + section;
            ASSERT_TRUE(host.wide.replay({Change::Kind::makeKey, "Software\\Vrix\\" + path}));
            write(text(), text(), path);
            write("SmartField1", text(), path);
        }
    }
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    run({"list"});
    EXPECT_EQ(std::count(host.out.begin(), host.out.end(), '\n'), 32);
    for (const std::vector<std::string>& command : {std::vector<std::string>{"list"},
                                                    {"show", keys[1]},
                                                    {"check"},
                                                    {"compare", keys[2], "sample.kls"},
                                                    {"export", "--all", "out", "--format", "json"},
                                                    {"show", text()},
                                                    {"remove", keys[3], "--yes"},
                                                    {"remove", keys[4]},
                                                    {"backups"},
                                                    {"restore", "latest", "--dry-run"},
                                                    {"restore", "latest"}}) {
        for (const bool isJson : {false, true}) {
            std::vector<std::string> arguments = command;
            if (isJson) arguments.emplace_back("--json");
            run(arguments);
            EXPECT_TRUE(isWhole(host.out + host.err)) << command[0] << host.out << host.err;
            EXPECT_EQ((host.out + host.err).find_first_of(isJson ? "\r\x1b" : "\r\x1b\x7f"), std::string::npos)
                << command[0];
            EXPECT_TRUE(!isJson || host.out.empty() || nlohmann::json::accept(host.out)) << command[0] << host.out;
        }
    }
    run({"dsc", "export"});
    EXPECT_TRUE(isWhole(host.out) && host.err.empty()) << host.err;
    write("a\xED\xA0\x80\x1b\n\xff\xC2\x9B", "");
    EXPECT_NE(run({"check", "SampleKey"}).find(R"(a\ud800\x1b\n\xff\u009b)"), std::string::npos) << host.out;
}

TEST_F(Vrix, CountsTheValuesThatNoCallCanRead) {
    EXPECT_EQ(code({"apply", "sample.kls", "--no-backup"}), '0');
    EXPECT_EQ(run({"backups"}), "0|There are no backups.\n");
    host.isOdd = true;
    write("AllowNoTOC", "1");
    EXPECT_EQ(code({"apply", "sample.kls"}), '0');
    EXPECT_NE(run({"backups"}).find("No backup holds what no call can reach: 1 value of the store.\n"),
              std::string::npos);
    run({"backups", "--json"});
    EXPECT_EQ(nlohmann::json::parse(host.out).at(0).at("unreachable"), 1);
    EXPECT_NE(run({"check"}).find("unreachable-value: Toolkit\\SampleKey\\Options [1]"), std::string::npos) << host.out;
    EXPECT_NE(run({"remove", "SampleKey", "--dry-run"}).find("what no call can reach: 1 value.\n"), std::string::npos);
    run({"remove", "SampleKey", "--yes", "--json"});
    EXPECT_EQ(nlohmann::json::parse(host.out).at("unreachable"), 1);
    EXPECT_EQ(run({"restore", "latest", "--json"}).find("unreachable"), std::string::npos);
}

TEST_F(Vrix, IsAResourceOfDsc) {
    EXPECT_EQ(run({"dsc", "get", "--input", "{\"key\":\"X\"}"}),
              "0|{\"key\":\"X\",\"tree\":\"toolkit\",\"_exist\":false}\n");
    host.input = "{\"key\":\"X\",\"name\":\"The X\",\"topics\":[{\"name\":\"A\",\"file\":\"a.doc\"}]}";
    EXPECT_EQ(code({"dsc", "set"}), '0');
    EXPECT_NE(host.out.find("\"_exist\":true}\n[\"_exist\"]\n"), std::string::npos) << host.out;
    const std::string whole = host.tree();
    host.input.replace(host.input.find("a.doc"), 5, "b.doc");
    EXPECT_EQ(code({"dsc", "test"}), '0');
    EXPECT_NE(host.out.find("\"_inDesiredState\":false}\n[\"topics\"]\n"), std::string::npos) << host.out;
    EXPECT_EQ(host.tree(), whole);
    EXPECT_EQ(run({"dsc", "set"}).substr(0, 1), "0");
    EXPECT_EQ(code({"dsc", "test"}), '0');
    EXPECT_NE(host.out.find("\"_inDesiredState\":true}\n[]\n"), std::string::npos) << host.out;
    host.input = "{\"key\":\"X\",\"_exist\":false}";
    EXPECT_EQ(code({"dsc", "set"}), '0');
    EXPECT_EQ(run({"dsc", "export"}), "0|");
    host.input = "{\"key\":\"X\",\"file\":\"sample.kls\"}";
    EXPECT_EQ(run({"dsc", "get"}),
              "5|{\"error\":\"the instance: it tells another Product than sample.kls, or more than its key.\"}\n");
    host.input = "{\"key\":\"X\",\"key\":\"Y\"}";
    EXPECT_EQ(run({"dsc", "get"}), "5|{\"error\":\"the instance: the member \\\"key\\\" stands twice.\"}\n");
}

TEST_F(Vrix, HelpAndSchemasMatchTheExpectedFiles) {
    std::string help;
    for (const char* command :
         {"", "list", "show", "check", "compare", "export", "schema", "apply", "remove", "backups", "restore", "dsc",
          "dsc get", "dsc test", "dsc set", "dsc delete", "dsc export", "dsc schema"}) {
        std::istringstream words(command + std::string(*command == '\0' ? "--help" : " --help"));
        run({std::istream_iterator<std::string>(words), {}});
        help += "$ vrix " + words.str() + '\n' + host.out + '\n';
    }
    expectAsWritten("help.txt", help);
    run({"schema"});
    expectAsWritten("product.schema.json", host.out);
    run({"dsc", "schema"});
    expectAsWritten("instance.schema.json", nlohmann::ordered_json::parse(host.out).dump(2) + '\n');
}

}  // namespace vrix
