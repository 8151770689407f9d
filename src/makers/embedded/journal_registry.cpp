#include "makers/embedded/journal_registry.h"

#include <optional>
#include <utility>

namespace vrix {

namespace {

// A record is the kind in one byte, then the type and the lengths of path and name, then path, name and data.
constexpr std::size_t fixedSize = 13;

std::optional<Change> changeOf(const std::string& record) {
    if (record.size() < fixedSize) return std::nullopt;
    const std::size_t path = unpacked(record, 5);
    const std::size_t name = unpacked(record, 9);
    const std::size_t rest = record.size() - fixedSize;
    if (path > rest || name > rest - path) return std::nullopt;
    return Change{static_cast<Change::Kind>(record[0]), record.substr(fixedSize, path),
                  record.substr(fixedSize + path, name), unpacked(record, 1), record.substr(fixedSize + path + name)};
}

journal::Reader replayer(EmbeddedRegistry& registry) {
    return [&registry](const std::string& record) {
        auto change = changeOf(record);
        return change && registry.replay(std::move(*change));
    };
}

}  // namespace

std::string journalRecord(const Change& change) {
    std::string record(1, static_cast<char>(change.kind));
    record += packed(change.type);
    record += packed(static_cast<std::uint32_t>(change.path.size()));
    record += packed(static_cast<std::uint32_t>(change.name.size()));
    return record + change.path + change.name + change.data;
}

JournalRegistry::JournalRegistry(const std::string& path, Environment environment, Disk& disk)
    : EmbeddedRegistry(std::move(environment)), file_(path, disk, replayer(*this)) {
    compactIfWorthwhile();
}

void JournalRegistry::compactIfWorthwhile() {
    constexpr std::uint64_t smallFile = 16'384;
    std::string needed;
    forEachChange([&](const Change& change) { needed += journal::framed(journalRecord(change)); });
    if (file_.size() > smallFile + 2 * needed.size()) file_.rewrite(needed);
}

RegistryStatus JournalRegistry::persist(const Change& change) {
    return file_.append(journalRecord(change)) ? RegistryStatus::success : RegistryStatus::registryIoFailed;
}

JournalSnapshot::JournalSnapshot(const std::string& path, Environment environment, Disk& disk)
    : EmbeddedRegistry(std::move(environment)) {
    journal::read(path, disk, replayer(*this));
}

}  // namespace vrix
