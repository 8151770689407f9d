#include "makers/win32/startup.h"
#include "makers/win32/win32_host.h"
#include "vrix/vrix.h"

extern "C" int wmain(int count, wchar_t** arguments) {
    vrix::hardenProcess();
    vrix::useSystemTexts();
    vrix::Win32Host host;
    return vrix::runVrix(vrix::utf8Texts({arguments + 1, arguments + count}), host);
}
