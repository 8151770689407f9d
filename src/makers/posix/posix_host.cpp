#include "makers/posix/posix_host.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "makers/posix/iconv_encoding.h"
#include "makers/posix/posix_disk.h"
#include "makers/standard/whole_file.h"

namespace vrix {

namespace {

constexpr mode_t folderMode = 0777;

}  // namespace

bool PosixHost::isAttended() { return isatty(STDIN_FILENO) != 0; }

std::string PosixHost::readLine() {
    std::string line;
    for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar()) line += static_cast<char>(c);
    return line;
}

std::string PosixHost::readAll() { return readWhole(stdin).value_or(""); }

void PosixHost::write(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void PosixHost::writeError(const std::string& text) {
    std::fflush(stdout);
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void PosixHost::flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw HostRefused("the output cannot be written");
}

std::optional<std::string> PosixHost::readFile(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr && (errno == ENOENT || errno == ENOTDIR)) return std::nullopt;
    return readAndClose(file, path);
}

void PosixHost::writeFile(const std::string& path, const std::string& bytes) {
    writeAndClose(std::fopen(path.c_str(), "wb"), path, bytes);
}

void PosixHost::makeFolder(const std::string& path) {
    if (mkdir(path.c_str(), folderMode) == 0 || errno == EEXIST) return;
    throw HostRefused("the folder \"" + path + "\" cannot be made (" + std::strerror(errno) + ")");
}

std::unique_ptr<Encoding> PosixHost::encoding(unsigned codePage) { return iconvEncoding(codePage); }

std::unique_ptr<JournalDisk> PosixHost::journalDisk() { return makePosixDisk(); }

std::string PosixHost::localDataFile(const std::string& folder, const std::string& file) {
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::string path =
        data != nullptr && *data != '\0' ? data : std::string(home == nullptr ? "" : home) + "/.local/share";
    path += '/' + folder;
    for (auto at = path.find('/', 1); at != std::string::npos; at = path.find('/', at + 1)) {
        mkdir(path.substr(0, at).c_str(), folderMode);
    }
    mkdir(path.c_str(), folderMode);
    return path + '/' + file;
}

}  // namespace vrix
