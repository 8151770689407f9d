#include "makers/win32/win32_host.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "makers/standard/whole_file.h"
#include "makers/win32/startup.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_disk.h"
#include "makers/win32/win32_encoding.h"
#include "makers/win32/win32_registry.h"

namespace vrix {

namespace {

std::wstring units(const std::string& text) { return wide(text, CP_UTF8); }

std::string utf8(const std::wstring& text) { return narrow(text, CP_UTF8); }

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE;
}

// Writes to a console as characters, to a file or pipe as UTF-8. False where some of it was lost.
bool put(DWORD stream, const std::string& text) {
    const HANDLE handle = GetStdHandle(stream);
    DWORD done = 0;
    if (!isConsole(handle)) {
        const auto size = static_cast<DWORD>(text.size());
        return WriteFile(handle, text.data(), size, &done, nullptr) != FALSE && done == size;
    }
    bool isWhole = true;
    const std::wstring whole = units(text);
    constexpr std::size_t most = 8'192;  // some consoles take no more at once
    for (std::size_t at = 0; at < whole.size(); at += most) {
        const auto part = static_cast<DWORD>(std::min(most, whole.size() - at));
        isWhole = WriteConsoleW(handle, whole.data() + at, part, &done, nullptr) != FALSE && isWhole;
    }
    return isWhole;
}

HANDLE input() { return GetStdHandle(STD_INPUT_HANDLE); }

}  // namespace

std::vector<std::string> utf8Texts(const std::vector<std::wstring>& texts) {
    std::vector<std::string> all;
    for (const std::wstring& text : texts) all.push_back(utf8(text));
    return all;
}

// ---- Input and output ----

bool Win32Host::isAttended() { return isConsole(input()); }

std::string Win32Host::readLine() {
    handOn();
    std::array<wchar_t, 256> line{};
    DWORD length = 0;
    if (ReadConsoleW(input(), line.data(), static_cast<DWORD>(line.size()), &length, nullptr) == FALSE) return "";
    const std::wstring text(line.data(), length);
    return utf8(text.substr(0, text.find_first_of(L"\r\n")));
}

std::string Win32Host::readAll() {
    std::string bytes;
    std::array<char, 65'536> part{};
    DWORD size = 0;
    while (ReadFile(input(), part.data(), static_cast<DWORD>(part.size()), &size, nullptr) != FALSE && size > 0) {
        bytes.append(part.data(), size);
    }
    return bytes;
}

void Win32Host::write(const std::string& text) {
    constexpr std::size_t most = 65'536;
    waiting_ += text;
    if (waiting_.size() > most) handOn();
}

void Win32Host::writeError(const std::string& text) {
    handOn();
    put(STD_ERROR_HANDLE, text);
}

void Win32Host::handOn() {
    if (!waiting_.empty()) isWhole_ = put(STD_OUTPUT_HANDLE, waiting_) && isWhole_;
    waiting_.clear();
}

void Win32Host::flush() {
    handOn();
    if (!isWhole_) throw HostRefused("the output cannot be written");
}

// ---- Files ----

std::optional<std::string> Win32Host::readFile(const std::string& path) {
    std::FILE* file = _wfopen(units(path).c_str(), L"rb");
    if (file == nullptr && (errno == ENOENT || errno == EINVAL)) return std::nullopt;
    return readAndClose(file, path);
}

void Win32Host::writeFile(const std::string& path, const std::string& bytes) {
    writeAndClose(_wfopen(units(path).c_str(), L"wb"), path, bytes);
}

void Win32Host::makeFolder(const std::string& path) {
    if (CreateDirectoryW(units(path).c_str(), nullptr) != FALSE || GetLastError() == ERROR_ALREADY_EXISTS) return;
    throw HostRefused("the folder \"" + path + "\" cannot be made (" + std::to_string(GetLastError()) + ")");
}

// The system finds files also by their short names, whose endings are cut: those do not count.
std::vector<std::string> Win32Host::filesOf(const std::string& pattern) {
    const std::size_t last = pattern.find_last_of("*?");
    std::vector<std::string> files;
    if (last == std::string::npos) return {pattern};
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(units(pattern).c_str(), &found);
    const std::size_t folderEnd = pattern.find_last_of("\\/:") + 1;
    const std::wstring ending = units(pattern.substr(last + 1));
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found) != FALSE) {
        const std::wstring name = found.cFileName;
        const bool ends = name.size() >= ending.size() &&
                          lstrcmpiW(name.c_str() + (name.size() - ending.size()), ending.c_str()) == 0;
        const bool isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        if (isFile && ends) files.push_back(pattern.substr(0, folderEnd) + utf8(name));
    }
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    std::sort(files.begin(), files.end());
    return files.empty() ? std::vector{pattern} : files;
}

// ---- Stores ----

std::unique_ptr<Registry> Win32Host::registry(RegistryView view) {
    BOOL isOnWideSystem = sizeof(void*) == 8;
    if (isOnWideSystem == FALSE) IsWow64Process(GetCurrentProcess(), &isOnWideSystem);
    const bool isThere = view == RegistryView::own || isOnWideSystem != FALSE;
    return isThere ? wideRegistry(view) : nullptr;
}

RegistryView Win32Host::ownView() { return sizeof(void*) == 8 ? RegistryView::bits64 : RegistryView::bits32; }

unsigned Win32Host::codePage() { return GetACP(); }

std::unique_ptr<Encoding> Win32Host::encoding(unsigned codePage) { return win32Encoding(codePage); }

std::unique_ptr<JournalDisk> Win32Host::journalDisk() { return makeJournalDisk(); }

std::string Win32Host::localDataFile(const std::string& folder, const std::string& file) {
    return vrix::localDataFile(folder, file);
}

}  // namespace vrix
