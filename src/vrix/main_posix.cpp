#include "vrix/vrix.h"

int main(int count, char** arguments) {
    return vrix::runVrix({arguments + 1, arguments + count}, vrix::systemConsole(), vrix::systemMachine());
}
