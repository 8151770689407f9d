#pragma once

#include <string>

#include "machine.h"
#include "makers/headless/headless_user.h"
#include "makers/standard/standard_files.h"
#include "pages/finish/new_product.h"
#include "program/program.h"
#include "store/product_export.h"
#include "store/settings_file.h"

namespace vrix::bench {

// The program over a store and windows.
struct Running {
    Running(Registry& registry, Screen& screen) : program(Platform{registry, screen, dialog, files, clock}) {}
    HeadlessFileDialog dialog;
    StandardFiles files;
    SetClock clock;
    Program program;
    Toolkit& pages = program.toolkit();
};

inline constexpr const char* productKey = "Bench";

std::string topicName(int row);
std::string topicPath(int row);

// Fills the pages as a user would have: the options, that many Topics, and a dependency for each.
void fillProduct(Toolkit& pages, int topics);
void fillTopics(Toolkit& pages, int topics);
// Chooses the stored Product for editing.
void chooseProduct(Toolkit& pages);
// Removes a key below the machine's hive with all that it holds.
void removeTree(Registry& store, const std::string& path);

void measureStore(const Scale& scale);
void measureSaves(const Scale& scale);
void measurePages(const Scale& scale);
void measureLasting(const Scale& scale);

}  // namespace vrix::bench
