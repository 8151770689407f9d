#include "makers/posix/posix_disk.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdio>

namespace vrix {

namespace {

class PosixDisk final : public JournalDisk {
public:
    PosixDisk() = default;
    ~PosixDisk() override {
        if (lock_ >= 0) ::close(lock_);
    }
    PosixDisk(const PosixDisk&) = delete;
    PosixDisk& operator=(const PosixDisk&) = delete;

    bool acquire(const std::string& path) override {
        constexpr mode_t forAll = 0666;
        lock_ = ::open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, forAll);
        return lock_ >= 0 && flock(lock_, LOCK_EX | LOCK_NB) == 0;
    }

    bool replace(const std::string& path, const std::string& by) override {
        return std::rename(by.c_str(), path.c_str()) == 0;
    }

    bool sync(std::FILE* file) override { return fsync(fileno(file)) == 0; }

private:
    int lock_ = -1;
};

}  // namespace

std::unique_ptr<JournalDisk> makePosixDisk() { return std::make_unique<PosixDisk>(); }

}  // namespace vrix
