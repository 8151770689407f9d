#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_disk.h"

namespace vrix {

// A registry in memory that can begin as another one stands, and that may refuse every change.
class StubRegistry final : public EmbeddedRegistry {
public:
    explicit StubRegistry(Environment environment = {}) : EmbeddedRegistry(std::move(environment)) {}
    using EmbeddedRegistry::replay;
    void copy(const StubRegistry& other) {
        other.forEachChange([this](const Change& change) { replay(change); });
    }
    RegistryStatus answer = RegistryStatus::success;

private:
    RegistryStatus persist(const Change&) override { return answer; }
};

// A disk whose files are free, or all held by another program. It tells what it is asked to bring in safety.
struct StubDisk final : JournalDisk {
    explicit StubDisk(bool isFree_ = true) : isFree(isFree_) {}
    bool acquire(const std::string&) override { return isFree; }
    bool replace(const std::string& path, const std::string& by) override {
        log += "replace ";
        std::error_code failed;
        std::filesystem::rename(by, path, failed);
        return !failed;
    }
    bool sync(std::FILE*) override {
        log += "sync ";
        return syncs;
    }
    bool isFree;
    bool syncs = true;
    std::string log;
};

}  // namespace vrix
