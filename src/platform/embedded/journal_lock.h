#pragma once

#include <string>

namespace vrix {

// Keeps a second program off one journal. What was acquired is held until the lock is destroyed, and by the system
// freed when the program is killed.
class JournalLock {
public:
    virtual ~JournalLock() = default;

    // False when another program, or another lock of this one, holds that file.
    virtual bool acquire(const std::string& path) = 0;
};

}  // namespace vrix
