#pragma once

#include <memory>

#include "platform/embedded/journal_lock.h"

namespace vrix {

// A lock that is a file beside the locked one. The system takes it away with the program that holds it, however that
// ends.
std::unique_ptr<JournalLock> makeFileLock();

}  // namespace vrix
