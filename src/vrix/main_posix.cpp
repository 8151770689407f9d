#include "makers/posix/posix_texts.h"
#include "vrix/vrix.h"

int main(int count, char** arguments) {
    vrix::useSystemTexts();
    return vrix::runVrix({arguments + 1, arguments + count}, vrix::systemConsole(), vrix::systemMachine());
}
