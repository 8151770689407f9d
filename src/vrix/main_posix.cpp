#include "common/code_page.h"
#include "makers/posix/iconv_encoding.h"
#include "vrix/vrix.h"

int main(int count, char** arguments) {
    const auto utf8 = vrix::iconvEncoding(65001);
    vrix::useCodePage(65001, *utf8);  // for what it shares with the Toolkit
    return vrix::runVrix({arguments + 1, arguments + count}, vrix::systemConsole(), vrix::systemMachine());
}
