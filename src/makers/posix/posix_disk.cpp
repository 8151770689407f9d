#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "common/fixed.h"
#include "platform/disk.h"

namespace vrix {

namespace {

constexpr mode_t forAll = 0666;

class PosixFile final : public DiskFile, Fixed {
public:
    explicit PosixFile(int file) : file_(file) {}
    ~PosixFile() override { PosixFile::close(); }

    std::optional<std::string> read(std::size_t wanted) override {
        std::string bytes(wanted, '\0');
        std::size_t size = 0;
        for (ssize_t part = 1; part > 0 && size < wanted; size += static_cast<std::size_t>(part)) {
            part = ::read(file_, bytes.data() + size, wanted - size);
            if (part < 0) return std::nullopt;
        }
        bytes.resize(size);
        return bytes;
    }
    bool write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t part = ::write(file_, bytes.data(), bytes.size());
            if (part < 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(part));
        }
        return true;
    }
    bool flush() override { return fsync(file_) == 0; }
    std::optional<std::uint64_t> size() override {
        struct stat facts {};
        return fstat(file_, &facts) == 0 ? std::optional(static_cast<std::uint64_t>(facts.st_size)) : std::nullopt;
    }
    bool cut(std::uint64_t size) override { return ftruncate(file_, static_cast<off_t>(size)) == 0; }
    bool close() override { return file_ < 0 || ::close(std::exchange(file_, -1)) == 0; }

private:
    int file_;
};

class PosixDisk final : public Disk {
public:
    PathKind kindOf(const std::string& path) override {
        struct stat facts {};
        if (stat(path.c_str(), &facts) == 0) return S_ISDIR(facts.st_mode) ? PathKind::folder : PathKind::file;
        return errno == ENOENT || errno == ENOTDIR ? PathKind::nothing : PathKind::unknown;
    }
    std::unique_ptr<DiskFile> open(const std::string& path, FileUse use) override {
        const int how = use == FileUse::read     ? O_RDONLY
                        : use == FileUse::append ? O_WRONLY | O_CREAT | O_APPEND
                                                 : O_WRONLY | O_CREAT | O_TRUNC;
        const int file = ::open(path.c_str(), how | O_CLOEXEC, forAll);
        return file < 0 ? nullptr : std::make_unique<PosixFile>(file);
    }
    bool replace(const std::string& path, const std::string& by) override {
        return std::rename(by.c_str(), path.c_str()) == 0;
    }
    bool remove(const std::string& path) override { return unlink(path.c_str()) == 0; }
    // Locks an empty file beside the one to be locked; the lock file stays.
    std::shared_ptr<void> lock(const std::string& path) override {
        const int file = ::open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, forAll);
        auto held = std::make_shared<PosixFile>(file);
        return file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0 ? held : nullptr;
    }
    bool makeFolder(const std::string& path) override {
        std::error_code refused;
        std::filesystem::create_directories(path, refused);
        return !refused;
    }
    std::vector<std::string> namesIn(const std::string& folder) override {
        std::error_code refused;
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder, refused)) {
            if (!entry.is_directory(refused)) names.push_back(entry.path().filename());
        }
        return names;
    }
    std::vector<std::string> filesOf(const std::string& pattern) override { return {pattern}; }
    std::string reason() override { return std::strerror(errno); }
};

}  // namespace

Disk& systemDisk() {
    static PosixDisk disk;
    return disk;
}

}  // namespace vrix
