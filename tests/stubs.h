#pragma once

#include <memory>
#include <string>
#include <utility>

#include "makers/embedded/embedded_registry.h"
#include "platform/disk.h"

namespace vrix {

// A registry in memory that can start as a copy of another one, and that may refuse every change.
class StubRegistry final : public EmbeddedRegistry {
public:
    explicit StubRegistry(Environment environment = {}) : EmbeddedRegistry(std::move(environment)) {}
    void copy(const StubRegistry& other) {
        other.forEachChange([this](const Change& change) { replay(change); });
    }
    RegistryStatus answer = RegistryStatus::success;

private:
    RegistryStatus persist(const Change&) override { return answer; }
};

// The disk of the system, whose files are free, or all locked by another program, and which may refuse. It logs flushes
// and replacements.
struct StubDisk final : Disk {
    struct File final : DiskFile {
        File(std::unique_ptr<DiskFile> real_, StubDisk& disk_) : real(std::move(real_)), disk(disk_) {}
        std::optional<std::string> read(std::size_t wanted) override { return real->read(wanted); }
        bool write(std::string_view bytes) override {
            return real->write(bytes.substr(0, disk.room)) && bytes.size() <= disk.room;
        }
        bool flush() override {
            disk.log += "sync ";
            return disk.syncs;
        }
        std::optional<std::uint64_t> size() override { return real->size(); }
        bool cut(std::uint64_t size) override { return disk.cuts && real->cut(size); }
        bool close() override { return real->close(); }
        std::unique_ptr<DiskFile> real;
        StubDisk& disk;
    };

    explicit StubDisk(bool isFree_ = true) : isFree(isFree_) {}
    PathKind kindOf(const std::string& path) override { return systemDisk().kindOf(path); }
    std::unique_ptr<DiskFile> open(const std::string& path, FileUse use) override {
        auto real = systemDisk().open(path, use);
        return real ? std::make_unique<File>(std::move(real), *this) : nullptr;
    }
    bool replace(const std::string& path, const std::string& by) override {
        log += "replace ";
        return systemDisk().replace(path, by);
    }
    bool remove(const std::string& path) override { return systemDisk().remove(path); }
    std::shared_ptr<void> lock(const std::string&) override { return isFree ? std::make_shared<int>() : nullptr; }
    bool makeFolder(const std::string& path) override { return systemDisk().makeFolder(path); }
    std::vector<std::string> namesIn(const std::string& folder) override { return systemDisk().namesIn(folder); }
    std::vector<std::string> filesOf(const std::string& pattern) override { return systemDisk().filesOf(pattern); }
    std::string reason() override { return systemDisk().reason(); }

    bool isFree;
    bool syncs = true;
    bool cuts = true;
    std::size_t room = std::string::npos;  // of one write
    std::string log;
};

}  // namespace vrix
