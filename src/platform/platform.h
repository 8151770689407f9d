#pragma once

namespace vrix {

class Registry;
class Screen;
class FileDialog;
class Files;
class Clock;

// What the program asks of its machine. Outlives every page.
struct Platform {
    Registry& registry;
    Screen& screen;
    FileDialog& fileDialog;
    Files& files;
    Clock& clock;
};

}  // namespace vrix
