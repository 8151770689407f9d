#include "makers/win32/startup.h"

#include <windows.h>

#include <utility>

#include "common/code_page.h"
#include "common/utf8.h"
#include "makers/win32/library_function.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_encoding.h"
#include "platform/disk.h"

namespace vrix {

namespace {

// Lowercase by the rules of file system and registry, one letter for one.
char32_t smallLetter(char32_t letter) {
    const auto unit = static_cast<wchar_t>(letter);
    wchar_t lower = unit;
    LCMapStringW(LOCALE_INVARIANT, LCMAP_LOWERCASE, &unit, 1, &lower, 1);
    return lower;
}

std::optional<std::wstring> variable(const wchar_t* name) {
    std::wstring text(32'767, L'\0');  // the longest that the platform allows
    SetLastError(ERROR_SUCCESS);
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return GetLastError() == ERROR_ENVVAR_NOT_FOUND ? std::nullopt : std::optional(text);
}

std::wstring temporaryFolder() {
    std::wstring path(MAX_PATH + 1, L'\0');
    path.resize(GetTempPathW(MAX_PATH + 1, path.data()));
    return path;
}

// The guide as the packages put it beside the program.
std::string guide() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    path = path.substr(0, path.rfind(L'\\') + 1) + L"Guide.html";
    const bool there = GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    return there ? narrow(path, CP_UTF8) : "Guide.html, in the package of the program";
}

}  // namespace

void hardenProcess() {
    constexpr DWORD systemFolderOnly = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    using Restrict = BOOL(WINAPI*)(DWORD);
    // Unpatched systems lack it.
    const auto restrictTo = libraryFunction<Restrict>(L"kernel32.dll", "SetDefaultDllDirectories");
    if (restrictTo != nullptr) restrictTo(systemFolderOnly);
}

void useSystemTexts() {
    static const auto encoding = win32Encoding(GetACP());
    useCodePage(GetACP(), *encoding);
    useLetterFolder(&smallLetter);
}

std::string localDataFolder(const std::string& name) {
    const auto local = variable(L"LOCALAPPDATA");
    const std::string path = wideToUtf8(local && !local->empty() ? *local : temporaryFolder()) + '\\' + name;
    systemDisk().makeFolder(path);
    return path + '\\';
}

std::optional<std::string> environmentText(const std::string& name) {
    const auto text = variable(utf8ToWide(name).c_str());
    return text ? std::optional(wideToUtf8(*text)) : std::nullopt;
}

std::string aboutProgram(const std::string& name, const std::string& version, const std::string& store) {
    return name + "\r\nVersion " + version + ", " + std::to_string(programWidth) + "-bit\r\n\r\nStore: " + store +
           "\r\n\r\nGuide: " + guide();
}

}  // namespace vrix
