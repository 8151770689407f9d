#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vrix {

// An open file. The destructor closes it.
class DiskFile {
public:
    virtual ~DiskFile() = default;

    // The next bytes, as many as wanted; fewer at the end of the file alone. Nothing where the disk refuses.
    virtual std::optional<std::string> read(std::size_t wanted) = 0;
    // Writes bytes, unbuffered. False where the disk refuses; some of them may be in the file then.
    virtual bool write(std::string_view bytes) = 0;
    // Flushes all that was written to the disk, so that it survives a power failure. False where the disk refuses.
    virtual bool flush() = 0;
    // In bytes; nothing where the disk does not tell.
    virtual std::optional<std::uint64_t> size() = 0;
    // Truncates the file to that size. False where the disk refuses.
    virtual bool cut(std::uint64_t size) = 0;
    // False where the disk refuses what was written: some systems report that only on close.
    virtual bool close() = 0;
};

// What a path names; `unknown` where the system does not tell.
enum class PathKind { nothing, file, folder, unknown };

// `append` makes a file that is missing and writes at its end, wherever that is then. `replace` empties what is there.
enum class FileUse { read, append, replace };

// The files of the machine, for all who need any. Paths are UTF-8.
class Disk {
public:
    virtual ~Disk() = default;

    virtual PathKind kindOf(const std::string& path) = 0;
    // Null where the system refuses.
    virtual std::unique_ptr<DiskFile> open(const std::string& path, FileUse use) = 0;
    // Renames a file over another one, atomically. False where the disk refuses; both files are unchanged then.
    virtual bool replace(const std::string& path, const std::string& by) = 0;
    // Removes a file, be it read-only or not. False when it is still there.
    virtual bool remove(const std::string& path) = 0;
    // Locks a path against other users until the result is destroyed; if the program is killed, the system releases the
    // lock. Null if another program, or another part of this one, holds it.
    virtual std::shared_ptr<void> lock(const std::string& path) = 0;
    // Makes a folder with those above it, where they are missing. False where the system refuses.
    virtual bool makeFolder(const std::string& path) = 0;
    // The names of the files in a folder, in no order; none where there is no such folder.
    virtual std::vector<std::string> namesIn(const std::string& folder) = 0;
    // The files that match a pattern with wildcards; the pattern itself where there are none, and on systems whose
    // shells expand wildcards.
    virtual std::vector<std::string> filesOf(const std::string& pattern) = 0;
    // The system's error message for the call before this one.
    virtual std::string reason() = 0;
};

// The disk of the platform that the program is built for.
Disk& systemDisk();

}  // namespace vrix
