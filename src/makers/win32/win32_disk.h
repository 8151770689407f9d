#pragma once

#include <memory>

#include "makers/embedded/journal_disk.h"

namespace vrix {

// Its lock is a file beside the locked one. The system takes that away with the program that holds it, however it ends.
std::unique_ptr<JournalDisk> makeJournalDisk();

}  // namespace vrix
