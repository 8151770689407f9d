#include "platform/win32/file_lock.h"

#include <windows.h>

namespace vrix {

namespace {

class FileLock final : public JournalLock {
public:
    FileLock() = default;
    ~FileLock() override {
        if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool acquire(const std::string& path) override {
        constexpr DWORD shared = 0;  // with no one
        file_ = CreateFileA((path + ".lock").c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        return file_ != INVALID_HANDLE_VALUE;
    }

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

}  // namespace

std::unique_ptr<JournalLock> makeFileLock() { return std::make_unique<FileLock>(); }

}  // namespace vrix
