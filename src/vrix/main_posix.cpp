#include "makers/posix/posix_host.h"
#include "vrix/vrix.h"

int main(int count, char** arguments) {
    vrix::PosixHost host;
    return vrix::runVrix({arguments + 1, arguments + count}, host);
}
