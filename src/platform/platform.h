#pragma once

namespace vrix {

class Registry;
class Screen;
class FileDialog;
class Files;
class Clock;

// The parts of the machine that the program uses. They live longer than every page.
struct Platform {
    Registry& registry;
    Screen& screen;
    FileDialog& fileDialog;
    Files& files;
    Clock& clock;
};

}  // namespace vrix
