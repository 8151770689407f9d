#include <windows.h>

#include <msi.h>
#include <msiquery.h>

// The MSI package's own step. Windows Installer would close a running program in silence or ask for a restart; the
// setup refuses, and so does this.

namespace {

constexpr DWORD longest = 1024;

// A program that runs is held against writing. Other refusals are left to Windows Installer.
bool runs(const wchar_t* path) {
    const DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(path, GENERIC_WRITE, all, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

// Sets the program to one in the folder that runs. False if none does.
bool findRunning(const wchar_t* folder, WIN32_FIND_DATAW& program) {
    wchar_t path[longest + MAX_PATH];
    const auto inFolder = [&](const wchar_t* name) { return lstrcatW(lstrcpyW(path, folder), name); };
    const HANDLE found = FindFirstFileW(inFolder(L"*.exe"), &program);
    if (found == INVALID_HANDLE_VALUE) return false;
    bool running = runs(inFolder(program.cFileName));
    while (!running && FindNextFileW(found, &program)) running = runs(inFolder(program.cFileName));
    FindClose(found);
    return running;
}

void tell(MSIHANDLE install, const wchar_t* program) {
    PMSIHANDLE message = MsiCreateRecord(1);
    MsiRecordSetStringW(message, 0, L"[1] is running. Please close it and start again.");
    MsiRecordSetStringW(message, 1, program);
    MsiProcessMessage(install, static_cast<INSTALLMESSAGE>(INSTALLMESSAGE_ERROR | MB_ICONSTOP), message);
}

}  // namespace

// Ends the installation with the code 1602 while a program in its folder runs, nothing being changed yet.
extern "C" __declspec(dllexport) UINT WINAPI refuseWhileRunning(MSIHANDLE install) {
    wchar_t folder[longest];
    DWORD length = longest;
    WIN32_FIND_DATAW program;
    if (MsiGetPropertyW(install, L"INSTALLDIR", folder, &length) != ERROR_SUCCESS) return ERROR_SUCCESS;
    if (!findRunning(folder, program)) return ERROR_SUCCESS;
    tell(install, program.cFileName);
    return ERROR_INSTALL_USEREXIT;
}
