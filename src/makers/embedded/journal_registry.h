#pragma once

#include <string>

#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_file.h"

namespace vrix {

// One change as a record of a journal.
std::string journalRecord(const Change& change);

// A registry kept in one file. Every change is appended to it before the call returns, so a program that is killed
// loses no change that was answered. If the disk refuses a change, the call answers registryIoFailed and changes
// nothing. The cost of a write does not depend on how much is stored.
class JournalRegistry final : public EmbeddedRegistry {
public:
    // Opens the journal, or makes a new one if there is no file. A last record that was not written whole is dropped.
    // If most of the file no longer counts, it is rewritten. Throws Refusal if the file is in use, is something
    // else, is damaged, or cannot be opened and written; the file is unchanged then.
    JournalRegistry(const std::string& path, Environment environment, Disk& disk);

    // Brings all changes onto the disk itself, so that a loss of power leaves them. To be called at the end of an
    // event, before its outcome is shown. False if the disk refuses.
    bool sync() { return file_.sync(); }

private:
    RegistryStatus persist(const Change& change) override;
    void compactIfWorthwhile();

    JournalFile file_;
};

// What a journal holds when this is made, for reading: the file stays as it is, and another program may be at work on
// it. Every change is refused with accessDenied.
class JournalSnapshot final : public EmbeddedRegistry {
public:
    // Throws Refusal when the file is something else, is damaged, or cannot be read.
    JournalSnapshot(const std::string& path, Environment environment, Disk& disk);

private:
    RegistryStatus persist(const Change&) override { return RegistryStatus::accessDenied; }
};

}  // namespace vrix
