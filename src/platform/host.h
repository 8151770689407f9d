#pragma once

#include <ctime>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/encoding.h"
#include "platform/registry.h"

namespace vrix {

class JournalDisk;

// Thrown where the system refuses a file. what() is a sentence that names it.
class HostRefused final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What a command line asks of the system. Texts and paths are UTF-8 unless told otherwise.
class Host {
public:
    virtual ~Host() = default;

    // ---- Input and output ----
    // Whether somebody sits at the input and can be asked.
    virtual bool isAttended() = 0;
    virtual std::string readLine() = 0;
    virtual std::string readAll() = 0;
    virtual void write(const std::string& text) = 0;
    virtual void writeError(const std::string& text) = 0;
    // Hands on all that was written, which may wait until then. Throws HostRefused where some of it was lost.
    virtual void flush() = 0;

    // ---- Files ----
    // What a file holds; nothing where no file is. Throws HostRefused.
    virtual std::optional<std::string> readFile(const std::string& path) = 0;
    // Makes a file, or replaces what it holds. Throws HostRefused.
    virtual void writeFile(const std::string& path, const std::string& bytes) = 0;
    // Makes a folder where it is missing. Throws HostRefused.
    virtual void makeFolder(const std::string& path) = 0;
    // The files that a pattern with wildcards stands for, by name; the pattern itself where there are none, and on
    // systems whose shells know wildcards themselves.
    virtual std::vector<std::string> filesOf(const std::string& pattern) = 0;

    // ---- Stores ----
    // The machine's registry in that view, or null where it has none.
    virtual std::unique_ptr<Registry> registry(RegistryView view) = 0;
    // Which of the other two `own` is.
    virtual RegistryView ownView() = 0;
    // The code page of the system.
    virtual unsigned codePage() = 0;
    // The code page of that number, or null.
    virtual std::unique_ptr<Encoding> encoding(unsigned codePage) = 0;
    virtual std::unique_ptr<JournalDisk> journalDisk() = 0;
    // The full path of a file in a folder below the user's local data, which is made.
    virtual std::string localDataFile(const std::string& folder, const std::string& file) = 0;
    virtual std::time_t now() = 0;
};

}  // namespace vrix
