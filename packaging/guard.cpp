#include <windows.h>

#include <msi.h>
#include <msiquery.h>
#include <tlhelp32.h>

// The MSI package's own step. Windows Installer would close a running program in silence or ask for a restart; this
// refuses before anything is changed. It asks for the names of what runs, since a double-click runs it without rights,
// and then opening a program's file for writing would fail whether the program runs or not.

namespace {

constexpr const wchar_t* programs[] = {L"VrixToolkit.exe", L"VrixToolkitTrial.exe", L"vrix.exe"};

// A program in any folder and of any width counts: its file may be the one to be replaced.
bool isOurs(const wchar_t* name) {
    for (const wchar_t* program : programs) {
        if (lstrcmpiW(name, program) == 0) return true;
    }
    return false;
}

// Sets the process to one of our programs that runs. False if none does, or if Windows does not tell.
bool findRunning(PROCESSENTRY32W& process) {
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (all == INVALID_HANDLE_VALUE) return false;
    process.dwSize = sizeof process;
    BOOL more = Process32FirstW(all, &process);
    while (more != FALSE && !isOurs(process.szExeFile)) more = Process32NextW(all, &process);
    CloseHandle(all);
    return more != FALSE;
}

void tell(MSIHANDLE install, const wchar_t* program) {
    PMSIHANDLE message = MsiCreateRecord(1);
    MsiRecordSetStringW(message, 0, L"[1] is running. Nothing was changed. Close it, or try again later.");
    MsiRecordSetStringW(message, 1, program);
    MsiProcessMessage(install, static_cast<INSTALLMESSAGE>(INSTALLMESSAGE_ERROR | MB_ICONSTOP), message);
}

}  // namespace

// Ends the installation while a program runs. Of the results that a step may have, only "ended by the user" gives
// msiexec an exit code of its own, 1602; any other refusal becomes 1603, as each failure does. The code for "busy",
// 1618, is kept by Windows Installer for itself.
extern "C" __declspec(dllexport) UINT WINAPI refuseWhileRunning(MSIHANDLE install) {
    PROCESSENTRY32W process;
    if (!findRunning(process)) return ERROR_SUCCESS;
    tell(install, process.szExeFile);
    return ERROR_INSTALL_USEREXIT;
}
