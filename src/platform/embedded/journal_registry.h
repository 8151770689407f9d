#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/embedded/embedded_registry.h"
#include "platform/embedded/journal_lock.h"

namespace vrix {

// Why a journal cannot be used, as a sentence for an administrator. The file is left as it was.
class JournalError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A registry kept in one file to which every change is appended before the call that makes it returns. A change that
// the disk refuses is registryIoFailed and not made.
class JournalRegistry final : public EmbeddedRegistry {
public:
    // Opens the journal, or makes a new one where no file is. A record that was cut off by the end of the program that
    // wrote it is dropped. A file with much that no longer counts is rewritten. Throws JournalError.
    JournalRegistry(const std::string& path, Environment environment, std::unique_ptr<JournalLock> lock);
    ~JournalRegistry() override;

private:
    Status keep(const Change& change) override;
};

}  // namespace vrix
