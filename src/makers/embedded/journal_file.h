#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/disk.h"

namespace vrix {

// A number as four bytes, little endian, and back.
std::string packed(std::uint32_t number);
std::uint32_t unpacked(const std::string& bytes, std::size_t from);

// A journal is a file of records. Its first line is the signature. A record is the length of its content, a checksum of
// the length, a checksum of the content (four bytes each, little endian), and the content.
namespace journal {

using Reader = std::function<bool(const std::string& record)>;  // false for an invalid record

struct Extent {
    std::uint64_t size = 0;  // up to the end of the last complete record
    bool torn = false;       // a partial record may follow
};

// Passes every complete record to `reader` and changes nothing. Another program may append meanwhile. Throws Refusal:
// malformed for a file of another kind and for one that is damaged before its end, refused for one that cannot be read.
// The file is left as it was, and the sentence is for an administrator.
Extent read(const std::string& path, Disk& disk, const Reader& reader);

// A record with its header, as the file holds it.
std::string framed(const std::string& record);

// Writes a journal of framed records, one after the other. An existing file stays until the new one is complete and
// flushed to the disk. Gives its size; nothing if the disk refuses, and nothing has changed then.
std::optional<std::uint64_t> write(const std::string& path, Disk& disk, const std::string& records);

}  // namespace journal

// A journal that grows.
class JournalFile {
public:
    // Opens the file, or makes an empty one, passes its records to `reader`, and truncates a torn last one. Throws as
    // journal::read does, and Refusal when the file is in use or cannot be written; it is left as it was then.
    JournalFile(const std::string& path, Disk& disk, const journal::Reader& reader);

    std::uint64_t size() const { return whole_.size; }

    // Appends a record and writes it to the file. False, with nothing appended, if the disk refuses.
    [[nodiscard]] bool append(const std::string& record);

    // Flushes what was appended since the last time to the disk. False if the disk refuses; the next call tries again.
    bool sync();

    // Replaces the file by one of these framed records; if the disk refuses, nothing changes. Throws Refusal if the
    // file cannot be opened again.
    void rewrite(const std::string& records);

private:
    std::unique_ptr<DiskFile> opened() const;
    bool truncateToWhole();

    std::string path_;
    Disk& disk_;
    std::unique_ptr<DiskFile> file_;
    std::shared_ptr<void> lock_;
    journal::Extent whole_;
    bool synced_ = true;  // all of it is flushed to the disk
};

}  // namespace vrix
