#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/disk.h"
#include "platform/registry.h"

namespace vrix {

// The folders below the user's local data: one for the registry as programs of each width, 64 or 32 bits, see it, and
// one for the Trial's store. The Trial itself keeps no backups of it, the command line does.
inline std::string registryBackups(int width) { return "Vrix Toolkit Backups (" + std::to_string(width) + "-bit)"; }
inline constexpr auto trialBackups = "Vrix Toolkit Trial Backups";

// The folder in which the backups of one store lie: journals named by date and time, such as
// "2026-11-22 09-30-05.journal".
class BackupFolder {
public:
    static constexpr std::size_t most = 20;

    // The folder is there already. Its path is one for the disk, with a separator at its end.
    BackupFolder(std::string path, Disk& disk) : path_(std::move(path)), disk_(disk) {}

    // Whether a text may name a backup: date and time, or "latest".
    static bool isName(const std::string& text);

    // The names without their ending, the newest first.
    std::vector<std::string> names() const;
    // The name of the backup that the text names, if it is there.
    std::optional<std::string> find(const std::string& text) const;
    // The path of the backup of that name.
    std::string pathOf(const std::string& name) const { return path_ + name + ".journal"; }

    // Keeps the family key of the registry, Software\Vrix with all below it, as a backup of that time, and removes the
    // oldest of more than 20. Gives its name. Throws Refusal.
    std::string keep(Registry& registry, std::time_t time);

private:
    std::string unusedName(std::time_t time) const;
    void removeOldest() const;

    std::string path_;
    Disk& disk_;
};

}  // namespace vrix
