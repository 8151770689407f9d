#include "makers/standard/standard_files.h"

#include "common/runtime_failure.h"
#include "registry_suite.h"

namespace vrix {

using namespace std::string_literals;

TEST(StandardFiles, FailWithTheirNumbers) {
    using enum FailureNumber;
    const TemporaryFolder folder;
    StandardFiles files;
    const std::string file = folder.path("file");
    const std::string missing = folder.path("missing");
    writeBytes(file, "x");
    const std::map<std::string, FailureNumber> places = {{"", pathNotFound},
                                                         {" \t ", pathNotFound},
                                                         {"\0x"s, pathNotFound},
                                                         {missing + "/x", pathNotFound},
                                                         {file + "/x", pathNotFound},
                                                         {folder.path("."), permissionDenied},
                                                         {folder.path(""), permissionDenied},
                                                         {missing, fileNotFound}};
    for (const auto& place : places) {
        const std::string& path = place.first;
        EXPECT_FALSE(files.exists(path)) << path;
        EXPECT_EQ(ignoring([&] { files.openText(path); }), place.second) << path;
        EXPECT_EQ(ignoring([&] { files.remove(path); }), place.second) << path;
        if (path == missing) continue;
        EXPECT_EQ(ignoring([&] { files.createText(path); }), place.second) << path;
    }
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_TRUE(files.exists(file));
    files.remove(file);
    EXPECT_FALSE(files.exists(file));
}

TEST(StandardFiles, WriteAndReadLinesAsBytes) {
    const TemporaryFolder folder;
    StandardFiles files;
    const std::string path = folder.path("line") + "\xE9\x80.txt";
    files.createText(path)->writeLine(std::string(500, 'x'));
    const auto place = folder.folder / u8"line\u00E9\u20AC.txt";
    const auto written = files.createText(path);
    for (const std::string& line : {"a\\b"s, ""s, "\x80\xE9\0\x1A"s}) written->writeLine(line);
    written->close();
    EXPECT_EQ(ignoring([&] { written->writeLine("late"); }), FailureNumber::permissionDenied);
    EXPECT_EQ(bytesOf(place), "a\\b\r\n\r\n\x80\xE9\0\x1A\r\n"s);
    writeBytes(place, "one\r\n\ntw\ro\n\x1A\0\r\r\nend\r"s);
    const auto read = files.openText(path);
    std::string lines;
    while (!read->atEnd()) lines += '[' + read->readLine() + ']';
    EXPECT_EQ(lines, "[one][][tw\ro][\x1A\0\r][end\r]"s);
    EXPECT_EQ(ignoring([&] { read->readLine(); }), FailureNumber::inputPastEnd);
    EXPECT_TRUE(files.exists(path));
}

}  // namespace vrix
