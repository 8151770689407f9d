#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vrix {

// An open file. It is closed when the object goes.
class DiskFile {
public:
    virtual ~DiskFile() = default;

    // The next bytes, as many as wanted; fewer at the end of the file alone. Nothing where the disk refuses.
    virtual std::optional<std::string> read(std::size_t wanted) = 0;
    // Hands bytes to the system at once. False where the disk refuses; some of them may be in the file then.
    virtual bool write(std::string_view bytes) = 0;
    // Brings all that was written onto the disk itself, where a loss of power leaves it. False where the disk refuses.
    virtual bool flush() = 0;
    // In bytes; nothing where the disk does not tell.
    virtual std::optional<std::uint64_t> size() = 0;
    // Cuts the file behind that many bytes. False where the disk refuses.
    virtual bool cut(std::uint64_t size) = 0;
    // False where the disk refuses what was written, which some tell only now.
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
    // Replaces a file by another one in one step. False where the disk refuses; both files are unchanged then.
    virtual bool replace(const std::string& path, const std::string& by) = 0;
    // Removes a file, be it read-only or not. False when it is still there.
    virtual bool remove(const std::string& path) = 0;
    // Locks a path against other users until the result goes; if the program is killed, the system frees it. Null if
    // another program, or another part of this one, holds the lock.
    virtual std::shared_ptr<void> lock(const std::string& path) = 0;
    // Makes a folder with those above it, where they are missing. False where the system refuses.
    virtual bool makeFolder(const std::string& path) = 0;
    // The names of the files in a folder, in no order; none where there is no such folder.
    virtual std::vector<std::string> namesIn(const std::string& folder) = 0;
    // The files that a pattern with wildcards stands for, by name; the pattern itself where there are none, and on
    // systems whose shells know wildcards themselves.
    virtual std::vector<std::string> filesOf(const std::string& pattern) = 0;
    // Why the call before this one was refused, in the system's words.
    virtual std::string reason() = 0;
};

// The disk of the platform that the program is built for.
Disk& systemDisk();

}  // namespace vrix
