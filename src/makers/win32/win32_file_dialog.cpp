#include "makers/win32/win32_file_dialog.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "makers/win32/library_function.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

constexpr std::size_t roomForPath = 32768;

// The pairs as the platform takes them: each text ends with a zero byte, the last with two.
std::string filterPairs(std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    return filter + '\0';
}

using Show = BOOL(WINAPI*)(OPENFILENAMEA*);

// The library of dialogs loads much of the shell, so it is loaded at the first dialog and not at the start.
constexpr const char* dialogLibrary = "comdlg32.dll";

const char* orNothing(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

std::optional<std::string> ask(Win32Screen& screen, const FileQuestion& question, const char* dialogName) {
    const auto show = libraryFunction<Show>(dialogLibrary, dialogName);
    const auto failure = libraryFunction<DWORD(WINAPI*)()>(dialogLibrary, "CommDlgExtendedError");
    if (show == nullptr || failure == nullptr) return std::nullopt;
    const std::string filter = filterPairs(question.filter);
    const std::string extension = question.defaultExtension.substr(question.defaultExtension.rfind('.') + 1);
    std::vector<char> path(roomForPath);
    question.fileName.copy(path.data(), path.size() - 1);

    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.lpstrFilter = question.filter.empty() ? nullptr : filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = orNothing(question.initialFolder);
    dialog.lpstrTitle = orNothing(question.title);
    dialog.lpstrDefExt = orNothing(extension);
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;

    bool chosen = false;
    screen.modal([&](HWND owner) {
        dialog.hwndOwner = owner;
        chosen = show(&dialog) != FALSE;
        if (chosen || failure() != FNERR_INVALIDFILENAME) return;
        path[0] = '\0';  // a name that no file can have: the dialog opens without one
        chosen = show(&dialog) != FALSE;
    });
    if (!chosen) return std::nullopt;
    return std::string(path.data());
}

}  // namespace

std::optional<std::string> Win32FileDialog::askOpen(const FileQuestion& question) {
    return ask(screen_, question, "GetOpenFileNameA");
}

std::optional<std::string> Win32FileDialog::askSave(const FileQuestion& question) {
    return ask(screen_, question, "GetSaveFileNameA");
}

}  // namespace vrix
