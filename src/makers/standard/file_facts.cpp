#include "makers/standard/file_facts.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>  // for the separators of the system alone: its paths would bring in all of the locales
#include <memory>
#include <string_view>

#include "common/code_page.h"

namespace vrix {

namespace {

using Facts = struct stat;

// What ends the name of a folder in a path.
constexpr std::string_view folderEnds = std::filesystem::path::preferred_separator == '\\' ? "\\/:" : "/";

// The bytes of a path up to the name of the file in it.
std::size_t folderSize(const std::string& path) {
    std::size_t size = 0;
    for (const char end : folderEnds) size = std::max(size, findLastCharacter(path, end) + 1);
    return size;
}

std::optional<Facts> factsOf(const std::string& path) {
    std::string text = path.c_str();
    // Not every system knows a folder by a name with a separator at its end.
    if (!text.empty() && folderSize(text) == text.size()) text += '.';
    Facts facts{};
    return stat(text.c_str(), &facts) == 0 ? std::optional(facts) : std::nullopt;
}

}  // namespace

PathKind kindOf(const std::string& path) {
    const auto facts = factsOf(path);
    if (!facts) return PathKind::nothing;
    return S_ISDIR(facts->st_mode) ? PathKind::folder : PathKind::file;
}

std::string folderOf(const std::string& path) {
    const std::string text = path.c_str();
    // The dot makes a folder of a bare drive, and of no text at all.
    return text.substr(0, folderSize(text)) + '.';
}

std::optional<std::uint64_t> sizeOf(std::FILE* file) {
    if (fseeko64(file, 0, SEEK_END) != 0) return std::nullopt;
    const off64_t size = ftello64(file);
    std::rewind(file);
    return size < 0 ? std::nullopt : std::optional(static_cast<std::uint64_t>(size));
}

std::vector<std::string> namesIn(const std::string& folder) {
    const auto close = [](DIR* open) { closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> open(opendir(folder.c_str()), close);
    std::vector<std::string> names;
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    return names;
}

bool cutFile(const std::string& path, std::uint64_t size) {
    return truncate64(path.c_str(), static_cast<off64_t>(size)) == 0;
}

bool removeFile(const std::string& path) {
    if (std::remove(path.c_str()) == 0) return true;
    // A read-only file does not go on Windows.
    const auto facts = factsOf(path);
    return facts && chmod(path.c_str(), facts->st_mode | S_IWUSR) == 0 && std::remove(path.c_str()) == 0;
}

}  // namespace vrix
