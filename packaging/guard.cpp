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
    wchar_t path[longest + MAX_PATH];
    DWORD length = longest;
    if (MsiGetPropertyW(install, L"INSTALLDIR", folder, &length) != ERROR_SUCCESS) return ERROR_SUCCESS;
    lstrcpyW(path, folder);
    lstrcatW(path, L"*.exe");
    WIN32_FIND_DATAW program;
    const HANDLE found = FindFirstFileW(path, &program);
    if (found == INVALID_HANDLE_VALUE) return ERROR_SUCCESS;
    bool refused = false;
    do {
        lstrcpyW(path, folder);
        lstrcatW(path, program.cFileName);
        refused = runs(path);
    } while (!refused && FindNextFileW(found, &program));
    FindClose(found);
    if (!refused) return ERROR_SUCCESS;
    tell(install, program.cFileName);
    return ERROR_INSTALL_USEREXIT;
}
