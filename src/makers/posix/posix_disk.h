#pragma once

#include <memory>

#include "makers/embedded/journal_disk.h"

namespace vrix {

// Its lock is a file beside the locked one, which stays there, empty.
std::unique_ptr<JournalDisk> makePosixDisk();

}  // namespace vrix
