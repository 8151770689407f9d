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

    // Locks a journal against other users until this object is destroyed. If the program is killed, the system frees
    // the lock. False if another program, or another object of this one, holds the lock.
    virtual bool acquire(const std::string& path) = 0;

    // Replaces a file by another one in one step. False if the disk refuses; both files are unchanged then.
    virtual bool replace(const std::string& path, const std::string& by) = 0;

    // As std::fopen does it.
    virtual std::FILE* open(const std::string& path, const char* mode);

    // Cuts a file to a size in bytes. False when the disk refuses.
    virtual bool cut(const std::string& path, std::uint64_t size);

    // Brings all that was written to an open file onto the disk itself, where a loss of power leaves it. False when the
    // disk refuses.
    virtual bool sync(std::FILE* file) = 0;

    // False when the file is still there.
    virtual bool remove(const std::string& path);

    virtual bool isFile(const std::string& path);

    // The names in a folder, in no order; none where there is no such folder.
    virtual std::vector<std::string> namesIn(const std::string& folder);
};

}  // namespace vrix
