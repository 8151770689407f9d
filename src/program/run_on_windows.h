#pragma once

#include "forms/event.h"
#include "platform/platform.h"
#include "platform/standard/standard_files.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_dialog.h"
#include "platform/win32/win32_windows.h"
#include "program/program.h"

namespace vrix {

// Runs the program over a registry, from its splash until it ends. Gives the exit code.
inline int runOnWindows(Registry& registry, Win32Windows& windows) {
    Win32FileDialog fileDialog(windows);
    StandardFiles files;
    Win32Clock clock;
    Program program(Platform{registry, windows, fileDialog, files, clock});
    runEvent(windows, [&] { program.start(); });
    return windows.run();
}

}  // namespace vrix
