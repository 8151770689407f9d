#include "platform/standard/native_path.h"

#include <clocale>
#include <cstdlib>
#include <system_error>
#include <type_traits>

namespace vrix {

namespace {

// The text in the wide form of the system, or an empty one for bytes that are no text there.
[[maybe_unused]] std::wstring wide(const char* text) {
    static const char* const locale = std::setlocale(LC_CTYPE, "");
    static_cast<void>(locale);
    const std::size_t length = std::mbstowcs(nullptr, text, 0);
    if (length == static_cast<std::size_t>(-1)) return {};
    std::wstring result(length, L'\0');
    std::mbstowcs(result.data(), text, length);
    return result;
}

}  // namespace

std::filesystem::path nativePath(const std::string& path) {
    if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>) return wide(path.c_str());
    return path.c_str();
}

std::filesystem::path folderOf(const std::string& path) {
    // The dot makes a folder of a bare drive, and of no text at all.
    return nativePath(path).parent_path() / ".";
}

bool isFolder(const std::filesystem::path& path) {
    std::error_code failed;
    return std::filesystem::is_directory(path, failed);
}

}  // namespace vrix
