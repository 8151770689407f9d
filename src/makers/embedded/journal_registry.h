#pragma once

#include <memory>
#include <string>

#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_disk.h"
#include "makers/embedded/journal_file.h"

namespace vrix {

// One change as a record of a journal.
std::string journalRecord(const Change& change);

// A registry kept in one file to which every change is appended before the call that makes it returns, so that a
// program that is killed loses nothing that was answered. A change that the disk refuses is registryIoFailed and not
// made. The cost of a write does not depend on how much is stored.
class JournalRegistry final : public EmbeddedRegistry {
public:
    // Opens the journal, or makes a new one where no file is. A last record that was not written whole is dropped. A
    // file most of which no longer counts is rewritten. Throws JournalError when the file is in use, is something else,
    // is damaged, or cannot be opened and written; it is left as it was then.
    JournalRegistry(const std::string& path, Environment environment, std::unique_ptr<JournalDisk> disk);

private:
    RegistryStatus persist(const Change& change) override;
    void compactIfWorthwhile();

    std::unique_ptr<JournalDisk> disk_;
    std::unique_ptr<JournalFile> file_;
};

// What a journal holds when this is made, for reading: the file stays as it is, and another program may be at work on
// it. Every change is refused with accessDenied.
class JournalSnapshot final : public EmbeddedRegistry {
public:
    // Throws JournalError when the file is something else, is damaged, or cannot be read.
    JournalSnapshot(const std::string& path, Environment environment, JournalDisk& disk);

private:
    RegistryStatus persist(const Change&) override { return RegistryStatus::accessDenied; }
};

}  // namespace vrix
