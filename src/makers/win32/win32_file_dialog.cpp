#include "makers/win32/win32_file_dialog.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "makers/win32/library_function.h"
#include "makers/win32/modal.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

constexpr std::size_t roomForPath = 32768;

// The pairs as the platform takes them: each text is zero-terminated, the list ends with one more zero.
std::wstring filterPairs(const std::string& filter) {
    std::wstring pairs = wide(filter);
    std::replace(pairs.begin(), pairs.end(), L'|', L'\0');
    return pairs + L'\0';
}

using Show = BOOL(WINAPI*)(OPENFILENAMEW*);

// The library of dialogs loads much of the shell, so it is loaded at the first dialog and not at the start.
constexpr const wchar_t* dialogLibrary = L"comdlg32.dll";

const wchar_t* orNothing(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

// The path with the short names of the parts that exist; unchanged where the disk keeps none.
std::wstring shortPath(const std::wstring& path) {
    std::wstring text(roomForPath, L'\0');
    text.resize(GetShortPathNameW(path.c_str(), text.data(), static_cast<DWORD>(text.size())));
    if (!text.empty()) return text;
    const std::size_t name = path.find_last_of(L'\\') + 1;  // of a file that is still to be made
    text.assign(roomForPath, L'\0');
    text.resize(GetShortPathNameW(path.substr(0, name).c_str(), text.data(), static_cast<DWORD>(text.size())));
    return text + path.substr(name);
}

std::optional<std::wstring> chosenPath(Win32Screen& screen, const FileQuestion& question, const char* dialogName) {
    const auto show = libraryFunction<Show>(dialogLibrary, dialogName);
    const auto failure = libraryFunction<DWORD(WINAPI*)()>(dialogLibrary, "CommDlgExtendedError");
    if (show == nullptr || failure == nullptr) return std::nullopt;
    const std::wstring filter = filterPairs(question.filter);
    const std::wstring folder = wide(question.initialFolder);
    const std::wstring title = wide(question.title);
    const std::wstring extension = wide(question.defaultExtension.substr(question.defaultExtension.rfind('.') + 1));
    std::vector<wchar_t> path(roomForPath);
    wide(question.fileName).copy(path.data(), path.size() - 1);

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.lpstrFilter = question.filter.empty() ? nullptr : filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = orNothing(folder);
    dialog.lpstrTitle = orNothing(title);
    dialog.lpstrDefExt = orNothing(extension);
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;

    const Modal modal(screen);
    dialog.hwndOwner = modal.owner();
    bool chosen = show(&dialog) != FALSE;
    if (!chosen && failure() == FNERR_INVALIDFILENAME) {
        path[0] = L'\0';  // no file can have that name: the dialog opens without one
        chosen = show(&dialog) != FALSE;
    }
    return chosen ? std::optional<std::wstring>(path.data()) : std::nullopt;
}

std::optional<std::string> ask(Win32Screen& screen, const FileQuestion& question, const char* dialogName) {
    const auto path = chosenPath(screen, question, dialogName);
    if (!path) return std::nullopt;
    for (const std::wstring& name : {*path, shortPath(*path)}) {
        if (wide(narrow(name)) == name) return narrow(name);
    }
    screen.ask("The path of this file has characters that the code page of this system cannot write.",
               "Path Cannot Be Written", Buttons::ok);
    return "";
}

}  // namespace

std::optional<std::string> Win32FileDialog::askOpen(const FileQuestion& question) {
    return ask(screen_, question, "GetOpenFileNameW");
}

std::optional<std::string> Win32FileDialog::askSave(const FileQuestion& question) {
    return ask(screen_, question, "GetSaveFileNameW");
}

}  // namespace vrix
