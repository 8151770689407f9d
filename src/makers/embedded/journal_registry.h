#pragma once

#include <string>

#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_file.h"

namespace vrix {

// One change as a record of a journal.
std::string journalRecord(const Change& change);

// A registry kept in one file. Every change is appended to it before the call returns, so a program that is killed
// loses no change that a call has confirmed. If the disk refuses a change, the call answers registryIoFailed and
// changes nothing. The cost of a write does not depend on how much is stored.
class JournalRegistry final : public EmbeddedRegistry {
public:
    // Opens the journal, or makes a new one if there is no file. A torn last record is dropped. If most of the file is
    // obsolete records, it is rewritten. Throws Refusal if the file is in use, is something else, is damaged, or cannot
    // be opened and written; the file is unchanged then.
    JournalRegistry(const std::string& path, Environment environment, Disk& disk);

    // Flushes all changes to the disk, so that they survive a power failure. To be called at the end of an event,
    // before its outcome is shown. False if the disk refuses.
    bool sync() { return file_.sync(); }

private:
    RegistryStatus persist(const Change& change) override;
    void compactIfWorthwhile();

    JournalFile file_;
};

// What a journal holds when this is made, read-only: the file stays as it is, and another program may be writing to it.
// Every change is refused with accessDenied.
class JournalSnapshot final : public EmbeddedRegistry {
public:
    // Throws Refusal when the file is something else, is damaged, or cannot be read.
    JournalSnapshot(const std::string& path, Environment environment, Disk& disk);

private:
    RegistryStatus persist(const Change&) override { return RegistryStatus::accessDenied; }
};

}  // namespace vrix
