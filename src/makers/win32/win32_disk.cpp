#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/fixed.h"
#include "makers/win32/wide_text.h"
#include "platform/disk.h"

namespace vrix {

namespace {

bool isFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

constexpr DWORD most = 0x4000'0000;  // bytes at once

class Win32File final : public DiskFile, Fixed {
public:
    Win32File(HANDLE file, FileUse use) : file_(file), appends_(use == FileUse::append) {}
    ~Win32File() override { Win32File::close(); }

    std::optional<std::string> read(std::size_t wanted) override {
        std::string bytes(wanted, '\0');
        std::size_t size = 0;
        for (DWORD part = 1; part > 0 && size < wanted; size += part) {
            const auto room = static_cast<DWORD>(std::min<std::size_t>(wanted - size, most));
            const bool done = ReadFile(file_, bytes.data() + size, room, &part, nullptr) != FALSE;
            if (!done && GetLastError() != ERROR_BROKEN_PIPE) return std::nullopt;
        }
        bytes.resize(size);
        return bytes;
    }
    bool write(std::string_view bytes) override {
        while (!bytes.empty()) {
            OVERLAPPED end{};
            end.Offset = end.OffsetHigh = 0xFFFF'FFFF;  // the end of the file
            DWORD part = 0;
            const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), most));
            if (WriteFile(file_, bytes.data(), size, &part, appends_ ? &end : nullptr) == FALSE) return false;
            if (part == 0) return false;
            bytes.remove_prefix(part);
        }
        return true;
    }
    bool flush() override { return FlushFileBuffers(file_) != FALSE; }
    std::optional<std::uint64_t> size() override {
        LARGE_INTEGER size{};
        if (GetFileSizeEx(file_, &size) == FALSE) return std::nullopt;
        return static_cast<std::uint64_t>(size.QuadPart);
    }
    bool cut(std::uint64_t size) override {
        LARGE_INTEGER end{};
        end.QuadPart = static_cast<LONGLONG>(size);
        return SetFilePointerEx(file_, end, nullptr, FILE_BEGIN) != FALSE && SetEndOfFile(file_) != FALSE;
    }
    bool close() override {
        const HANDLE file = std::exchange(file_, nullptr);
        return file == nullptr || CloseHandle(file) != FALSE;
    }

private:
    HANDLE file_;
    bool appends_;
};

// What the system finds by a pattern, folders left out.
std::vector<std::wstring> filesFound(const std::wstring& pattern) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found) != FALSE) {
        if (!isFolder(found.dwFileAttributes)) names.emplace_back(found.cFileName);
    }
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    return names;
}

class Win32Disk final : public Disk {
public:
    PathKind kindOf(const std::string& path) override {
        const DWORD attributes = GetFileAttributesW(utf8ToWide(path).c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES) return isFolder(attributes) ? PathKind::folder : PathKind::file;
        return GetLastError() == ERROR_ACCESS_DENIED ? PathKind::unknown : PathKind::nothing;
    }
    std::unique_ptr<DiskFile> open(const std::string& path, FileUse use) override {
        const DWORD rights = use == FileUse::read ? GENERIC_READ : GENERIC_WRITE;
        const DWORD how = use == FileUse::read ? OPEN_EXISTING : use == FileUse::append ? OPEN_ALWAYS : CREATE_ALWAYS;
        const HANDLE file = CreateFileW(utf8ToWide(path).c_str(), rights, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        how, FILE_ATTRIBUTE_NORMAL, nullptr);
        return file == INVALID_HANDLE_VALUE ? nullptr : std::make_unique<Win32File>(file, use);
    }
    bool replace(const std::string& path, const std::string& by) override {
        constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        return MoveFileExW(utf8ToWide(by).c_str(), utf8ToWide(path).c_str(), how) != FALSE;
    }
    bool remove(const std::string& path) override {
        const std::wstring file = utf8ToWide(path);
        if (DeleteFileW(file.c_str()) != FALSE) return true;
        const DWORD attributes = GetFileAttributesW(file.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES &&
               SetFileAttributesW(file.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) != FALSE &&
               DeleteFileW(file.c_str()) != FALSE;
    }
    // Locks a file beside the one to be locked. The system deletes it when the program ends, even after a crash.
    std::shared_ptr<void> lock(const std::string& path) override {
        constexpr DWORD shared = 0;  // with no one
        const HANDLE file =
            CreateFileW(utf8ToWide(path + ".lock").c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr,
                        CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        return file == INVALID_HANDLE_VALUE ? nullptr : std::shared_ptr<void>(file, &CloseHandle);
    }
    bool makeFolder(const std::string& path) override {
        const auto isMade = [&] {
            return CreateDirectoryW(utf8ToWide(path).c_str(), nullptr) != FALSE || kindOf(path) == PathKind::folder;
        };
        if (isMade()) return true;
        const std::size_t above = path.find_last_of("\\/");
        return above != std::string::npos && above > 0 && makeFolder(path.substr(0, above)) && isMade();
    }
    std::vector<std::string> namesIn(const std::string& folder) override {
        std::vector<std::string> names;
        for (const std::wstring& name : filesFound(utf8ToWide(folder + "\\*"))) names.push_back(wideToUtf8(name));
        return names;
    }
    // The system also matches short names, whose extensions are truncated: those are filtered out.
    std::vector<std::string> filesOf(const std::string& pattern) override {
        const std::size_t last = pattern.find_last_of("*?");
        if (last == std::string::npos) return {pattern};
        const std::string folder = pattern.substr(0, pattern.find_last_of("\\/:") + 1);
        const std::wstring ending = utf8ToWide(pattern.substr(last + 1));
        std::vector<std::string> files;
        for (const std::wstring& name : filesFound(utf8ToWide(pattern))) {
            const bool ends = name.size() >= ending.size() &&
                              lstrcmpiW(name.c_str() + (name.size() - ending.size()), ending.c_str()) == 0;
            if (ends) files.push_back(folder + wideToUtf8(name));
        }
        std::sort(files.begin(), files.end());
        return files.empty() ? std::vector{pattern} : files;
    }
    std::string reason() override {
        const DWORD error = GetLastError();
        std::array<wchar_t, 512> text{};
        const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                          text.data(), static_cast<DWORD>(text.size()), nullptr);
        std::string words = wideToUtf8({text.data(), size});
        words.resize(words.find_last_not_of(". \r\n") + 1);
        return words.empty() ? "error " + std::to_string(error) : words;
    }
};

}  // namespace

Disk& systemDisk() {
    static Win32Disk disk;
    return disk;
}

}  // namespace vrix
