#include <string>
#include <vector>

#include "makers/win32/startup.h"
#include "makers/win32/wide_text.h"
#include "vrix/vrix.h"

extern "C" int wmain(int count, wchar_t** arguments) {
    vrix::hardenProcess();
    vrix::useSystemCodePage();
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(vrix::narrow(arguments[i], 65001));
    return vrix::runVrix(texts, vrix::systemConsole(), vrix::systemMachine());
}
