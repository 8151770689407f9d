#include "common/refusal.h"
#include "makers/embedded/memory_registry.h"
#include "registry_suite.h"
#include "stubs.h"

namespace vrix {

using namespace std::string_literals;

namespace {

// What a file holds, or why it is refused.
std::string outcome(const std::string& path, bool isFree = true) {
    try {
        return listing(*openedJournal(path, isFree), hive::localMachine);
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

class JournalTest : public testing::Test {
protected:
    // A journal of changes of every kind, with its size and its tree after each. The file is read while the registry is
    // open: confirmed changes are in the file, not in a buffer.
    void SetUp() override {
        using enum Do;
        const auto registry = openedJournal(path);
        Caller caller(*registry);
        for (const Call& call :
             {Call{open}, Call{make, "V\\J", "0", 0, 63, 1}, Call{set, "a", "0", 1, 3, 0, "x"}, Call{set, "", "0", 1},
              Call{set, "A", "0", 1}, Call{set, "b", "0", 1}, Call{erase, "B", "0", 1}, Call{make, ".x", "0", 9},
              Call{remove, ".X", "0", 9}, Call{erase, "B", "2", 1}, Call{set, "last", "0", 0, 3, 0, "\0\xFF\r\n"s}}) {
            ASSERT_EQ(caller.answer(call), call.answer);
            whole = bytesOf(path);
            trees[whole.size()] = listing(*registry, hive::localMachine);
        }
    }

    std::string outcomeOf(const std::string& bytes) {
        writeBytes(path, bytes);
        return outcome(path);
    }

    TemporaryFolder folder;
    const std::string path = folder.path("store.journal");
    const std::string refused = "The file \"" + path + "\" ";
    const std::string foreign = refused + "is not a journal of this program. It was left as it is";
    const std::string damaged = refused + "is damaged and was left as it is. Restore it from a copy or move it away";
    const std::size_t signature = 24;
    std::map<std::size_t, std::string> trees{{0, "Software{Classes{};};"}, {signature, "Software{Classes{};};"}};
    std::string whole;
};

}  // namespace

TEST_F(JournalTest, ConformsAndHoldsTheSameAsMemoryWheneverItIsOpened) {
    int number = 0;
    expectKeepsCharacters([&] { return openedJournal(path + std::to_string(++number)); });
    MemoryRegistry memory(environmentLookup());
    for (unsigned seed = 0; seed < 20; ++seed) {
        Caller first(memory);
        const auto journal = openedJournal(path + "-same");
        CodePageRegistry inCodePage(*journal);
        Caller second(inCodePage);
        expectSameAnswers(seed, 400, 1252, first, second);
    }
}

// A journal must still be read by later versions.
TEST_F(JournalTest, BeginsWithItsSignatureAndARecordOfKnownBytes) {
    EXPECT_EQ(whole.substr(0, 64),
              "Vrix registry journal 2\n\x1C\0\0\0\x3B\x37\x8B\x3B\x74\xF0\x2D\x52"
              "\1\0\0\0\0\xF\0\0\0\0\0\0\0Software\\Vrix.T"s);
}

// Records that fit no tree, or that no call could have made: the number of the kind, the path, and the name behind "=".
TEST(EmbeddedRegistry, ReplaysOnlyChangesThatItCouldHaveMade) {
    StubRegistry store;
    ASSERT_TRUE(store.replay({Change::Kind::makeKey, "Software\\a\\b"}));
    const std::string n256(256, 'n'), v16k(16'384, 'v');
    for (const std::string& told :
         {"1\\Software\\x"s, "1x"s, "1Software\\a"s, "1Software\\a\\" + n256, "1Software\\c\\" + n256,
          "1Software\\x\0y"s, "2Software\\a"s, "2Software"s, "2Software\\x"s, "3Software\\x=v"s, "3Software\\a=" + v16k,
          "3Software\\a=v\0"s, "4Software\\a=v"s, "5Software\\a=v"s}) {
        const std::string path = told.substr(1, told.find('=') - 1);
        const Change change{Change::Kind(told[0] - '0'), path, told.substr(std::min(path.size() + 2, told.size()))};
        EXPECT_FALSE(store.replay(change)) << told.substr(0, 20);
    }
    EXPECT_EQ(listing(store, hive::localMachine), "Software{Classes{};a{b{};};};");
}

TEST_F(JournalTest, DamagedAnywhereIsRefusedAndLeftAsItIs) {
    const auto& [last, before] = *std::prev(trees.end(), 2);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
        const bool mayBeTorn = at >= last + 8;  // the content of the last record could be half written
        ASSERT_EQ(outcomeOf(bytes), at < signature ? foreign : mayBeTorn ? before : damaged) << at;
        ASSERT_EQ(bytesOf(path), mayBeTorn ? whole.substr(0, last) : bytes) << at;
    }
    for (const std::string& behind : {"0123456789ab"s, std::string(50, '\0') + 'x', whole.substr(signature)}) {
        EXPECT_EQ(outcomeOf(whole + behind), damaged) << behind;
    }
    for (const std::string& record :
         {""s, std::string(12, '\1'), std::string(13, '\xFF'), "\5" + std::string(12, '\0')}) {
        writeBytes(path, whole);  // a complete record, but an invalid change
        StubDisk disk;
        JournalFile file(path, disk, [](const std::string&) { return true; });
        ASSERT_TRUE(file.append(record));
        EXPECT_EQ(outcome(path), damaged) << record;
    }
    for (const std::size_t room : {1u, 12u, 5'000u}) {  // allocated by the system for a record and never written
        EXPECT_EQ(outcomeOf(whole + std::string(room, '\0')), trees.rbegin()->second);
        EXPECT_EQ(bytesOf(path), whole);
    }
}

TEST_F(JournalTest, TruncatedAnywhereKeepsEveryCompleteRecordAndTakesMore) {
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        const auto& [end, tree] = *std::prev(trees.upper_bound(length));
        writeBytes(path, whole.substr(0, length));
        const auto opened = openedJournal(path);
        ASSERT_EQ(listing(*opened, hive::localMachine), tree) << length;
        ASSERT_EQ(bytesOf(path), whole.substr(0, std::max(end, signature))) << length;
        ASSERT_EQ(Caller(*opened).answer({Do::set, "more"}), "0") << length;
        ASSERT_NE(outcome(path).find("more:"), std::string::npos) << length;
    }
}

TEST_F(JournalTest, RefusesWhatItCannotUse) {
    for (const std::string other : {"x", "Vrix registry journal 3\n", "Vrix registry\n", "\n", "MZ\x90"}) {
        EXPECT_EQ(outcomeOf(other), foreign) << other;
        EXPECT_EQ(outcome(path, false), refused + "is in use by another program");
        EXPECT_EQ(bytesOf(path), other);
    }
    whole[signature - 2] = '1';
    EXPECT_EQ(outcomeOf(whole),
              refused + "is a journal of an older version, whose texts are not UTF-8. It was left as it is");
    EXPECT_EQ(bytesOf(path), whole);
    EXPECT_EQ(outcome(path + "/x"), "The file \"" + path + "/x\" cannot be opened for writing");
    EXPECT_EQ(outcome(folder.path(".")), "The file \"" + folder.path(".") + "\" cannot be opened for writing");
}

TEST_F(JournalTest, IsCompactedAtTheStartWhenMostRecordsAreObsolete) {
    auto registry = openedJournal(path);
    for (int i = 0; i < 1'000; ++i) {
        EXPECT_EQ(registry->setValue(hive::classesRoot, i % 2 == 0 ? "v" : "w", 4, std::to_string(i)),
                  RegistryStatus::success);
    }
    const std::string before = listing(*registry, hive::localMachine);
    registry.reset();
    writeBytes(path + ".new", std::string(9'999, 'x'));  // left by a program that was killed
    EXPECT_EQ(outcome(path), before);
    EXPECT_LT(bytesOf(path).size(), 600u);
    EXPECT_EQ(outcome(path), before);
}

TEST_F(JournalTest, IsFlushedOncePerEventAndBeforeItReplacesTheOldOne) {
    StubDisk disk;
    JournalRegistry registry(path, {}, disk);
    const auto write = [&](int times) {
        for (int i = 0; i < times; ++i) {
            EXPECT_EQ(registry.setValue(hive::classesRoot, "v", 4, std::to_string(i)), RegistryStatus::success);
        }
    };
    write(3);
    EXPECT_EQ(disk.log, "");
    registry.sync();
    registry.sync();
    EXPECT_EQ(disk.log, "sync ");
    disk.syncs = false;
    write(1);
    registry.sync();
    registry.sync();  // a retry
    EXPECT_EQ(disk.log, "sync sync sync ");

    for (const bool syncs : {false, true}) {
        StubDisk other;
        other.syncs = syncs;
        JournalFile file(path + "2", other, [](const std::string&) { return true; });
        ASSERT_TRUE(file.append("x"));
        file.rewrite("");
        EXPECT_EQ(other.log, syncs ? "sync replace " : "sync ");
        EXPECT_EQ(bytesOf(path + "2").size() == signature, syncs);
    }
}

TEST_F(JournalTest, TruncatesAPartialWriteBeforeTheNextOne) {
    StubDisk disk;
    JournalRegistry registry(path, {}, disk);
    const auto write = [&] { return registry.setValue(hive::classesRoot, "v", 4, "four"); };
    disk.room = 5;
    disk.cuts = false;
    EXPECT_EQ(write(), RegistryStatus::registryIoFailed);
    EXPECT_EQ(bytesOf(path).size(), whole.size() + 5);
    disk.room = std::string::npos;
    EXPECT_EQ(write(), RegistryStatus::registryIoFailed);
    EXPECT_EQ(bytesOf(path).size(), whole.size() + 5);
    disk.cuts = true;
    EXPECT_EQ(write(), RegistryStatus::success);
    EXPECT_EQ(outcome(path), listing(registry, hive::localMachine));
}

}  // namespace vrix
