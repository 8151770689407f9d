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

// A file of records that only grows: a line that says what it is, then for each record its length, a check of the
// length, a check of the content (four bytes each, lowest first) and the content.
class JournalFile {
public:
    static constexpr std::size_t headSize = 12;

    using Reader = std::function<bool(const std::string& record)>;
    using Writer = std::function<void(const std::string& record)>;

    // Opens the file, or makes an empty one, and changes nothing. Throws JournalError when it cannot be written.
    JournalFile(const std::string& path, JournalDisk& disk);

    // Hands every record to `reader`, which answers whether it makes sense, and makes the file ready for more. A last
    // record that is not whole is cut off. Throws JournalError for a file of another kind, for one that is damaged
    // before its end, and for one that cannot be read; it is left as it was then.
    void start(const Reader& reader);

    std::uint64_t size() const { return size_; }

    // Appends a record; it has left the program when this returns. False, and nothing appended, when the disk refuses.
    [[nodiscard]] bool append(const std::string& record);

    // Brings what was appended since the last time onto the disk itself. What the disk refuses is tried again with the
    // next call.
    void sync();

    // Replaces the file by one that holds what `content` hands to its writer. Until the new one is whole the old one
    // stays, and a disk that refuses changes nothing. Throws JournalError when the file cannot be opened again.
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
