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
    } catch (const JournalError& error) {
        return error.what();
    }
}

class JournalTest : public testing::Test {
protected:
    // A journal of changes of every kind, with its size and its tree after each. The file is read while the registry
    // is open: what was answered has left the program.
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
    const std::string foreign = refused + "is not a journal of this program. It was left as it is.";
    const std::string damaged = refused + "is damaged and was left as it is. Restore it from a copy or move it away.";
    const std::size_t signature = 24;
    std::map<std::size_t, std::string> trees{{0, "Software{Classes{};};"}, {signature, "Software{Classes{};};"}};
    std::string whole;
};

}  // namespace

TEST_F(JournalTest, ConformsAndHoldsTheSameAsMemoryWheneverItIsOpened) {
    int number = 0;
    expectConforms([&] { return openedJournal(path + std::to_string(++number)); });
    MemoryRegistry memory(environmentLookup());
    for (unsigned seed = 0; seed < 20; ++seed) expectSameAnswers(seed, 400, memory, *openedJournal(path + "-same"));
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
        writeBytes(path, whole);  // whole in itself, but no change that makes sense
        StubDisk disk;
        JournalFile file(path, disk);
        file.start([](const std::string&) { return true; });
        ASSERT_TRUE(file.append(record));
        EXPECT_EQ(outcome(path), damaged) << record;
    }
    for (const std::size_t room : {1u, 12u, 5'000u}) {  // given by the system to a record and never filled
        EXPECT_EQ(outcomeOf(whole + std::string(room, '\0')), trees.rbegin()->second);
        EXPECT_EQ(bytesOf(path), whole);
    }
}

TEST_F(JournalTest, RefusesWhatItCannotUse) {
    for (const std::string other : {"x", "Vrix registry journal 2\n", "Vrix registry\n", "\n", "MZ\x90"}) {
        EXPECT_EQ(outcomeOf(other), foreign) << other;
        EXPECT_EQ(outcome(path, false), refused + "is in use by another program.");
        EXPECT_EQ(bytesOf(path), other);
    }
    EXPECT_EQ(outcome(path + "/x"), "The file \"" + path + "/x\" cannot be opened for writing.");
    EXPECT_EQ(outcome(folder.path(".")), "The file \"" + folder.path(".") + "\" cannot be opened for writing.");
}

TEST_F(JournalTest, IsRewrittenAtTheStartWhenMostOfItNoLongerCounts) {
    auto registry = openedJournal(path);
    for (int i = 0; i < 1'000; ++i) {
        EXPECT_EQ(registry->setValue(hive::classesRoot, i % 2 == 0 ? "v" : "w", 4, &i, 4), RegistryStatus::success);
    }
    const std::string before = listing(*registry, hive::localMachine);
    registry.reset();
    writeBytes(path + ".new", std::string(9'999, 'x'));  // left by a program that was killed
    EXPECT_EQ(outcome(path), before);
    EXPECT_LT(bytesOf(path).size(), 600u);
    EXPECT_EQ(outcome(path), before);
}

}  // namespace vrix
