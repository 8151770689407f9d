#pragma once

#include <memory>

#include "makers/embedded/journal_disk.h"

namespace vrix {

// Its paths are UTF-8, since a folder of the user may have a name that the code page cannot write. Its lock is a file
// beside the locked one. The system deletes that file when the program ends, even if it crashes.
std::unique_ptr<JournalDisk> makeJournalDisk();

}  // namespace vrix
