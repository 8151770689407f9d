#include "makers/embedded/journal_file.h"

#include <algorithm>
#include <array>

#include "makers/embedded/journal_disk.h"
#include "makers/standard/file_facts.h"

namespace vrix {

namespace {

const std::string signature = "Vrix registry journal 1\n";

constexpr std::array<std::uint32_t, 256> crcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ (value % 2 != 0 ? 0xEDB88320u : 0u);
        table[i] = value;
    }
    return table;
}

// The cyclic redundancy check of 32 bits.
std::uint32_t crc32(const std::string& bytes) {
    static constexpr auto table = crcTable();
    std::uint32_t value = ~0u;
    for (const char c : bytes) value = (value >> 8) ^ table[(value ^ static_cast<unsigned char>(c)) & 0xFFu];
    return ~value;
}

std::string framed(const std::string& record) {
    const std::string length = packed(static_cast<std::uint32_t>(record.size()));
    return length + packed(crc32(length)) + packed(crc32(record)) + record;
}

bool put(std::FILE* stream, const std::string& bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
}

// Whether nothing but zero bytes follows: room that the system gave to a record and never filled.
bool onlyZeros(std::FILE* stream) {
    int c = 0;
    while (c == 0) c = std::fgetc(stream);
    return std::feof(stream) != 0;
}

std::string sentence(const std::string& path, const std::string& what) { return "The file \"" + path + "\" " + what; }

JournalError error(const std::string& path, const std::string& what) { return JournalError(sentence(path, what)); }

}  // namespace

std::string packed(std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFFu);
    return bytes;
}

std::uint32_t unpacked(const std::string& bytes, std::size_t from) {
    std::uint32_t number = 0;
    for (unsigned i = 0; i < 4; ++i) number |= std::uint32_t{static_cast<unsigned char>(bytes[from + i])} << (8 * i);
    return number;
}

journal::Extent journal::read(const std::string& path, JournalDisk& disk, const Reader& reader) {
    const Stream source(disk.open(path, "rb"));
    const auto unreadable = error(path, "cannot be read.");
    const auto whole = source ? sizeOf(source.get()) : std::nullopt;
    if (!whole) throw unreadable;
    // By the file's size these bytes are there. If the disk does not give them, this is no end of the file.
    const auto take = [&](std::uint64_t count) {
        std::string bytes(static_cast<std::size_t>(count), '\0');
        if (std::fread(bytes.data(), 1, bytes.size(), source.get()) != bytes.size()) throw unreadable;
        return bytes;
    };
    const std::string first = take(std::min<std::uint64_t>(*whole, signature.size()));
    if (!signature.starts_with(first)) {
        throw NoJournal(sentence(path, "is not a journal of this program. It was left as it is."));
    }
    if (first.size() < signature.size()) return {0, !first.empty()};

    const NoJournal damaged(
        sentence(path, "is damaged and was left as it is. Restore it from a copy or move it away."));
    std::uint64_t size = signature.size();
    while (size < *whole) {
        if (*whole - size < headSize) return {size, true};
        const std::string head = take(headSize);
        const std::uint64_t length = unpacked(head, 0);
        if (crc32(head.substr(0, 4)) != unpacked(head, 4)) {
            if (head.find_first_not_of('\0') == std::string::npos && onlyZeros(source.get())) return {size, true};
            throw damaged;
        }
        const std::uint64_t end = size + headSize + length;
        if (end > *whole) return {size, true};
        const std::string record = take(length);
        if (crc32(record) != unpacked(head, 8)) {
            if (end == *whole) return {size, true};
            throw damaged;
        }
        if (!reader(record)) throw damaged;
        size = end;
    }
    return {size, false};
}

std::optional<std::uint64_t> journal::write(const std::string& path, JournalDisk& disk, const Content& content) {
    const std::string fresh = path + ".new";
    Stream target(disk.open(fresh, "wb"));
    if (!target) return std::nullopt;
    std::uint64_t size = signature.size();
    bool whole = put(target.get(), signature);
    try {
        content([&](const std::string& record) {
            const std::string frame = framed(record);
            whole = whole && put(target.get(), frame);
            size += frame.size();
        });
    } catch (...) {
        target.reset();
        disk.remove(fresh);
        throw;
    }
    // On the disk before it takes the old one's place: else a loss of power could leave neither.
    whole = whole && std::fflush(target.get()) == 0 && disk.sync(target.get());
    if (std::fclose(target.release()) != 0) whole = false;
    if (whole && disk.replace(path, fresh)) return size;
    disk.remove(fresh);
    return std::nullopt;
}

JournalFile::JournalFile(const std::string& path, JournalDisk& disk) : path_(path), disk_(disk) { open(); }

void JournalFile::start(const journal::Reader& reader) {
    const journal::Extent extent = journal::read(path_, disk_, reader);
    size_ = extent.size;
    torn_ = extent.torn;
    if (torn_ && !truncateToWhole()) throw error(path_, "cannot be written.");
    if (size_ > 0) return;
    if (!put(stream_.get(), signature)) throw error(path_, "cannot be written.");
    size_ = signature.size();
}

void JournalFile::open() {
    stream_.reset(disk_.open(path_, "ab"));
    if (!stream_) throw error(path_, "cannot be opened for writing.");
    // Without a buffer each write goes to the system at once, and none that was refused is tried again later.
    std::setvbuf(stream_.get(), nullptr, _IONBF, 0);
}

bool JournalFile::append(const std::string& record) {
    if (torn_ && !truncateToWhole()) return false;
    const std::string frame = framed(record);
    synced_ = false;
    if (put(stream_.get(), frame)) {
        size_ += frame.size();
        return true;
    }
    std::clearerr(stream_.get());
    truncateToWhole();
    return false;
}

bool JournalFile::sync() {
    if (!synced_) synced_ = disk_.sync(stream_.get());
    return synced_;
}

bool JournalFile::truncateToWhole() {
    torn_ = !disk_.cut(path_, size_);
    return !torn_;
}

void JournalFile::rewrite(const journal::Content& content) {
    stream_.reset();
    if (const auto size = journal::write(path_, disk_, content)) size_ = *size;
    open();
}

}  // namespace vrix
