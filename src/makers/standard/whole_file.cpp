#include "makers/standard/whole_file.h"

#include <array>
#include <cerrno>
#include <cstring>

#include "platform/host.h"

namespace vrix {

namespace {

HostRefused refusal(const std::string& path, const std::string& what) {
    return HostRefused("the file \"" + path + "\" cannot be " + what + " (" + std::strerror(errno) + ")");
}

}  // namespace

std::optional<std::string> readWhole(std::FILE* stream) {
    std::string bytes;
    std::array<char, 65'536> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), stream)) bytes.append(part.data(), size);
    return std::ferror(stream) != 0 ? std::nullopt : std::optional(bytes);
}

std::string readAndClose(std::FILE* file, const std::string& path) {
    if (file == nullptr) throw refusal(path, "read");
    auto bytes = readWhole(file);
    const HostRefused refused = refusal(path, "read");
    std::fclose(file);
    if (!bytes) throw refused;
    return *std::move(bytes);
}

void writeAndClose(std::FILE* file, const std::string& path, const std::string& bytes) {
    if (file == nullptr) throw refusal(path, "written");
    const bool whole = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    if (std::fclose(file) != 0 || !whole) throw refusal(path, "written");
}

}  // namespace vrix
