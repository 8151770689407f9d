#pragma once

#include <ctime>
#include <stdexcept>
#include <string>
#include <vector>

#include "makers/embedded/journal_disk.h"
#include "platform/registry.h"

namespace vrix {

// Why a backup could not be made, as a sentence.
class BackupFailed final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The folder in which the backups of one store lie: journals named by date and time, such as
// "2026-11-22 09-30-05.journal". A path is bytes of the system's code page. The folder is there already.
class BackupFolder {
public:
    static constexpr std::size_t most = 20;

    BackupFolder(std::string path, JournalDisk& disk) : path_(std::move(path)), disk_(disk) {}

    // The names without their ending, the newest first.
    std::vector<std::string> names() const;
    // The path of the backup of that name.
    std::string pathOf(const std::string& name) const { return path_ + "/" + name + ".journal"; }

    // Keeps the family key of the registry, Software\Vrix with all below it, as a backup of that time, and removes the
    // oldest of more than 20. Gives its name. Throws BackupFailed.
    std::string keep(Registry& registry, std::time_t time);

private:
    std::string unusedName(std::time_t time) const;
    void removeOldest() const;

    std::string path_;
    JournalDisk& disk_;
};

}  // namespace vrix
