#include <string>
#include <vector>

#include "common/code_page.h"
#include "makers/win32/startup.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_encoding.h"
#include "vrix/vrix.h"

extern "C" int wmain(int count, wchar_t** arguments) {
    vrix::hardenProcess();
    vrix::useSystemTexts();
    const auto utf8 = vrix::win32Encoding(65001);
    vrix::useCodePage(65001, *utf8);  // for what it shares with the Toolkit
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(vrix::wideToUtf8(arguments[i]));
    return vrix::runVrix(texts, vrix::systemConsole(), vrix::systemMachine());
}
