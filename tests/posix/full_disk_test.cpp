#include <sys/resource.h>

#include <csignal>

#include "common/runtime_failure.h"
#include "makers/standard/standard_files.h"
#include "registry_suite.h"

namespace vrix {

// No file of this program grows beyond that size, as on a disk that is full.
static void limitFiles(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limits{size, RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limits), 0);
}

TEST(FullDisk, LeavesTheJournalAsItWasAndLaterWritesGood) {
    using enum Do;
    const TemporaryFolder folder;
    const std::string path = folder.path("store.journal");
    auto registry = openedJournal(path);
    for (int i = 0; i < 500; ++i) Caller(*registry).answer({set, "v"});
    const std::string grown = bytesOf(path);
    limitFiles(100);  // no room for the new file of a rewrite
    EXPECT_EQ(Caller(*openedJournal(path)).answer({tree}), "v:63=;");
    limitFiles(RLIM_INFINITY);
    EXPECT_EQ(bytesOf(path), grown);
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
    registry = openedJournal(path);
    Caller caller(*registry);
    const std::string bytes = bytesOf(path);
    EXPECT_LT(bytes.size(), 200u);
    for (std::size_t room = 0; room < 41; ++room) {  // the shortest record here is longer
        limitFiles(bytes.size() + room);
        for (const Do what : {make, set, erase}) EXPECT_EQ(caller.answer({what, "v"}), "1016") << room;
        EXPECT_EQ(bytesOf(path), bytes);
    }
    limitFiles(RLIM_INFINITY);
    EXPECT_EQ(caller.answer({set, "w"}), "0");
    EXPECT_EQ(Caller(*openedJournal(path)).answer({tree}), "v:63=;w:63=;");
}

TEST(FullDisk, FailsTheWriteOrTheCloseOfATextFile) {
    const TemporaryFolder folder;
    const auto stream = StandardFiles().createText(folder.path("x"));
    limitFiles(2);
    EXPECT_EQ(ignoring([&] { stream->writeLine("ab"); }), FailureNumber::none);  // buffered
    EXPECT_EQ(ignoring([&] { stream->writeLine(std::string(200'000, 'x')); }), FailureNumber::permissionDenied);
    limitFiles(RLIM_INFINITY);
    EXPECT_EQ(ignoring([&] { stream->writeLine("behind what is lost"); }), FailureNumber::permissionDenied);
    EXPECT_EQ(ignoring([&] { stream->close(); }), FailureNumber::permissionDenied);
}

}  // namespace vrix
