#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace vrix {

class JournalDisk;

// Why a journal cannot be used, as a sentence for an administrator. The file is left as it was.
class JournalError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A number as four bytes, lowest first, and back.
std::string packed(std::uint32_t number);
std::uint32_t unpacked(const std::string& bytes, std::size_t from);

// A file of records that only grows. Its first line says what it is. A record is the length of its content, a check sum
// of the length, a check sum of the content (four bytes each, lowest first), and the content.
class JournalFile {
public:
    static constexpr std::size_t headSize = 12;

    using Reader = std::function<bool(const std::string& record)>;
    using Writer = std::function<void(const std::string& record)>;

    // Opens the file, or makes an empty one, and changes nothing. Throws JournalError when it cannot be written.
    JournalFile(const std::string& path, JournalDisk& disk);

    // Hands every record to `reader`, which answers whether it makes sense, and makes the file ready for more. A last
    // record that is not whole is cut off. Throws JournalError if the file is of another kind, is damaged before its
    // end, or cannot be read; the file is unchanged then.
    void start(const Reader& reader);

    std::uint64_t size() const { return size_; }

    // Appends a record and hands it to the system. False, with nothing appended, if the disk refuses.
    [[nodiscard]] bool append(const std::string& record);

    // Brings what was appended since the last time onto the disk itself. What the disk refuses is tried again with the
    // next call.
    void sync();

    // Replaces the file by one with the records that `content` hands to its writer. The old file stays until the new
    // one is whole; if the disk refuses, nothing changes. Throws JournalError if the file cannot be opened again.
    void rewrite(const std::function<void(const Writer& writer)>& content);

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    using Stream = std::unique_ptr<std::FILE, Closer>;

    void open();
    void read(const Reader& reader);
    bool truncateToWhole();

    std::string path_;
    JournalDisk& disk_;
    Stream stream_;
    std::uint64_t size_ = 0;  // up to the end of the last whole record
    bool torn_ = false;       // a part of a record may stand behind it
    bool synced_ = true;      // all of it is on the disk itself
};

}  // namespace vrix
