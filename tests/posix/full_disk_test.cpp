#include <sys/resource.h>

#include <csignal>

#include "common/runtime_failure.h"
#include "platform/standard/standard_files.h"
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
    {
        const auto registry = openedJournal(path);
        Caller caller(*registry);
        ASSERT_EQ(caller.answer({set, "v"}), "0");
        const std::string bytes = bytesOf(path);
        for (std::size_t room = 0; room < 41; ++room) {  // the shortest record here is longer
            limitFiles(bytes.size() + room);
            for (const Do what : {make, set, erase}) EXPECT_EQ(caller.answer({what, "v"}), "1016") << room;
            EXPECT_EQ(bytesOf(path), bytes);
        }
        limitFiles(RLIM_INFINITY);
        EXPECT_EQ(caller.answer({tree}), "v:63=;");
        EXPECT_EQ(caller.answer({set, "w"}), "0");
    }
    EXPECT_EQ(Caller(*openedJournal(path)).answer({tree}), "v:63=;w:63=;");
}

TEST(FullDisk, FailsTheWriteOrTheCloseOfATextFile) {
    const TemporaryFolder folder;
    for (const std::size_t length : {1u, 200'000u}) {
        const auto stream = StandardFiles().createText(folder.path("x"));
        limitFiles(2);
        const auto written = ignoring([&] { stream->writeLine(std::string(length, 'x')); });
        const auto closed = ignoring([&] { stream->close(); });
        limitFiles(RLIM_INFINITY);
        EXPECT_EQ(length > 1 ? written : closed, FailureNumber::permissionDenied);
    }
}

}  // namespace vrix
