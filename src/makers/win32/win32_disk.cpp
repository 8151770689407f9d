#include "makers/win32/win32_disk.h"

#include <io.h>
#include <windows.h>

#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

std::wstring native(const std::string& path) { return wide(path, CP_UTF8); }

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
        file_ = CreateFileW(native(path + ".lock").c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr,
                            CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        return file_ != INVALID_HANDLE_VALUE;
    }

    bool replace(const std::string& path, const std::string& by) override {
        constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        return MoveFileExW(native(by).c_str(), native(path).c_str(), how) != FALSE;
    }

    std::FILE* open(const std::string& path, const char* mode) override {
        return _wfopen(native(path).c_str(), native(mode).c_str());
    }

    bool cut(const std::string& path, std::uint64_t size) override {
        const HANDLE file = CreateFileW(native(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) return false;
        LARGE_INTEGER end;
        end.QuadPart = static_cast<LONGLONG>(size);
        const bool done = SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != FALSE && SetEndOfFile(file) != FALSE;
        CloseHandle(file);
        return done;
    }

    bool sync(std::FILE* file) override { return _commit(_fileno(file)) == 0; }

    bool remove(const std::string& path) override { return DeleteFileW(native(path).c_str()) != FALSE; }

    bool isFile(const std::string& path) override {
        return (GetFileAttributesW(native(path).c_str()) & FILE_ATTRIBUTE_DIRECTORY) == 0;  // all bits where is none
    }

    std::vector<std::string> namesIn(const std::string& folder) override {
        std::vector<std::string> names;
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW(native(folder + "\\*").c_str(), &found);
        for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found) != FALSE) {
            names.push_back(narrow(found.cFileName, CP_UTF8));
        }
        if (search != INVALID_HANDLE_VALUE) FindClose(search);
        return names;
    }

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

}  // namespace

std::unique_ptr<JournalDisk> makeJournalDisk() { return std::make_unique<Win32Disk>(); }

}  // namespace vrix
