#include "makers/embedded/journal_file.h"

#include <algorithm>
#include <array>

#include "common/refusal.h"

namespace vrix {

namespace {

const std::string signature = "Vrix registry journal 2\n";
const std::string olderSignature = "Vrix registry journal 1\n";

constexpr std::size_t headSize = 12;

constexpr std::array<std::uint32_t, 256> crcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ (value % 2 != 0 ? 0xEDB88320u : 0u);
        table[i] = value;
    }
    return table;
}

// The CRC-32 checksum.
std::uint32_t crc32(const std::string& bytes) {
    static constexpr auto table = crcTable();
    std::uint32_t value = ~0u;
    for (const char c : bytes) value = (value >> 8) ^ table[(value ^ static_cast<unsigned char>(c)) & 0xFFu];
    return ~value;
}

Refusal refusal(const std::string& path, const std::string& what, Refusal::Kind kind = Refusal::Kind::refused) {
    return {kind, "The file \"" + path + "\" " + what};
}

Refusal malformed(const std::string& path, const std::string& what) {
    return refusal(path, what, Refusal::Kind::malformed);
}

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

std::string journal::framed(const std::string& record) {
    const std::string length = packed(static_cast<std::uint32_t>(record.size()));
    return length + packed(crc32(length)) + packed(crc32(record)) + record;
}

journal::Extent journal::read(const std::string& path, Disk& disk, const Reader& reader) {
    const auto file = disk.open(path, FileUse::read);
    const auto unreadable = refusal(path, "cannot be read");
    const auto whole = file ? file->size() : std::nullopt;
    if (!whole) throw unreadable;
    // The file's size says that these bytes exist. A short read is an error here, not the end of the file.
    const auto take = [&](std::uint64_t count) {
        auto bytes = file->read(static_cast<std::size_t>(count));
        if (!bytes || bytes->size() < count) throw unreadable;
        return *std::move(bytes);
    };
    const std::string first = take(std::min<std::uint64_t>(*whole, signature.size()));
    if (first == olderSignature) {
        throw malformed(path, "is a journal of an older version, whose texts are not UTF-8. It was left as it is");
    }
    if (!signature.starts_with(first)) {
        throw malformed(path, "is not a journal of this program. It was left as it is");
    }
    if (first.size() < signature.size()) return {0, !first.empty()};

    const auto damaged = malformed(path, "is damaged and was left as it is. Restore it from a copy or move it away");
    const std::string bytes = take(*whole - signature.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Extent torn{signature.size() + at, true};
        const std::size_t left = bytes.size() - at;
        if (left < headSize) return torn;
        if (crc32(bytes.substr(at, 4)) != unpacked(bytes, at + 4)) {
            // Space that the system allocated for a record and never wrote.
            if (bytes.find_first_not_of('\0', at) == std::string::npos) return torn;
            throw damaged;
        }
        const std::size_t length = unpacked(bytes, at);
        if (length > left - headSize) return torn;
        const std::string record = bytes.substr(at + headSize, length);
        const bool isLast = left == headSize + length;
        if (crc32(record) != unpacked(bytes, at + 8)) {
            if (isLast) return torn;
            throw damaged;
        }
        if (!reader(record)) throw damaged;
        at += headSize + length;
    }
    return {*whole, false};
}

std::optional<std::uint64_t> journal::write(const std::string& path, Disk& disk, const std::string& records) {
    const std::string bytes = signature + records;
    const std::string fresh = path + ".new";
    const auto file = disk.open(fresh, FileUse::replace);
    // Flushed before it replaces the old file: else a power failure could lose both.
    const bool isWhole = file && file->write(bytes) && file->flush() && file->close();
    if (isWhole && disk.replace(path, fresh)) return bytes.size();
    if (file) {
        file->close();
        disk.remove(fresh);
    }
    return std::nullopt;
}

// Opened before it is locked, since a lock that is refused does not say why.
JournalFile::JournalFile(const std::string& path, Disk& disk, const journal::Reader& reader)
    : path_(path), disk_(disk), file_(opened()), lock_(disk.lock(path)) {
    if (!lock_) throw refusal(path, "is in use by another program");
    whole_ = journal::read(path_, disk_, reader);
    if (whole_.torn && !truncateToWhole()) throw refusal(path_, "cannot be written");
    if (whole_.size > 0) return;
    if (!file_->write(signature)) throw refusal(path_, "cannot be written");
    whole_.size = signature.size();
}

std::unique_ptr<DiskFile> JournalFile::opened() const {
    auto file = disk_.open(path_, FileUse::append);
    if (!file) throw refusal(path_, "cannot be opened for writing");
    return file;
}

bool JournalFile::append(const std::string& record) {
    if (whole_.torn && !truncateToWhole()) return false;
    const std::string frame = journal::framed(record);
    synced_ = false;
    if (file_->write(frame)) {
        whole_.size += frame.size();
        return true;
    }
    truncateToWhole();
    return false;
}

bool JournalFile::sync() {
    if (!synced_) synced_ = file_->flush();
    return synced_;
}

bool JournalFile::truncateToWhole() {
    whole_.torn = !file_->cut(whole_.size);
    return !whole_.torn;
}

void JournalFile::rewrite(const std::string& records) {
    file_.reset();
    if (const auto size = journal::write(path_, disk_, records)) whole_.size = *size;
    file_ = opened();
}

}  // namespace vrix
