#include "makers/embedded/journal_disk.h"

#include "makers/standard/file_facts.h"

namespace vrix {

std::FILE* JournalDisk::open(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

bool JournalDisk::cut(const std::string& path, std::uint64_t size) { return cutFile(path, size); }

bool JournalDisk::remove(const std::string& path) { return removeFile(path); }

}  // namespace vrix
