#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace vrix {

// The file system as a journal needs it. A path is what the maker of the disk takes for one.
class JournalDisk {
public:
    virtual ~JournalDisk() = default;

    // Keeps a second program off one journal. What was acquired is held until this is destroyed, and freed by the
    // system when the program is killed. False when another program, or another of this one, holds that file.
    virtual bool acquire(const std::string& path) = 0;

    // Puts a file in the place of another in one step. False, and both as they were, when the disk refuses.
    virtual bool replace(const std::string& path, const std::string& by) = 0;

    // As std::fopen does it.
    virtual std::FILE* open(const std::string& path, const char* mode);

    // Cuts a file to a size in bytes. False when the disk refuses.
    virtual bool cut(const std::string& path, std::uint64_t size);

    // False when the file is still there.
    virtual bool remove(const std::string& path);

    virtual bool isFile(const std::string& path);

    // The names in a folder, in no order; none where there is no such folder.
    virtual std::vector<std::string> namesIn(const std::string& folder);
};

}  // namespace vrix
