#pragma once

#include "forms/event.h"
#include "makers/standard/standard_files.h"
#include "makers/win32/win32_clock.h"
#include "makers/win32/win32_file_dialog.h"
#include "makers/win32/win32_screen.h"
#include "platform/platform.h"
#include "program/program.h"

namespace vrix {

// Runs the program over a registry, from its splash until it ends. Gives the exit code.
inline int runOnWindows(Registry& registry, Win32Screen& screen) {
    Win32FileDialog fileDialog(screen);
    StandardFiles files;
    Win32Clock clock;
    Program program(Platform{registry, screen, fileDialog, files, clock});
    runEvent(screen, [&] { program.start(); });
    return screen.run();
}

}  // namespace vrix
