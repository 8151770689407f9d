#include "makers/win32/win32_disk.h"

#include <windows.h>

namespace vrix {

namespace {

class Win32Disk final : public JournalDisk {
public:
    Win32Disk() = default;
    ~Win32Disk() override {
        if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
    }
    Win32Disk(const Win32Disk&) = delete;
    Win32Disk& operator=(const Win32Disk&) = delete;

    bool acquire(const std::string& path) override {
        constexpr DWORD shared = 0;  // with no one
        file_ = CreateFileA((path + ".lock").c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        return file_ != INVALID_HANDLE_VALUE;
    }

    bool replace(const std::string& path, const std::string& by) override {
        return MoveFileExA(by.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
    }

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

}  // namespace

std::unique_ptr<JournalDisk> makeJournalDisk() { return std::make_unique<Win32Disk>(); }

}  // namespace vrix
