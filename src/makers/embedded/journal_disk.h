#pragma once

#include <string>

namespace vrix {

// What a journal asks of its file system beyond the standard library.
class JournalDisk {
public:
    virtual ~JournalDisk() = default;

    // Keeps a second program off one journal. What was acquired is held until this is destroyed, and freed by the
    // system when the program is killed. False when another program, or another of this one, holds that file.
    virtual bool acquire(const std::string& path) = 0;

    // Puts a file in the place of another in one step. False, and both as they were, when the disk refuses.
    virtual bool replace(const std::string& path, const std::string& by) = 0;
};

}  // namespace vrix
