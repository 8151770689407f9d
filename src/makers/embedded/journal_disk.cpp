#include "makers/embedded/journal_disk.h"

#include "makers/standard/file_facts.h"

namespace vrix {

std::FILE* JournalDisk::open(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

bool JournalDisk::cut(const std::string& path, std::uint64_t size) { return cutFile(path, size); }

bool JournalDisk::remove(const std::string& path) { return removeFile(path); }

bool JournalDisk::isFile(const std::string& path) { return kindOf(path) == PathKind::file; }

std::vector<std::string> JournalDisk::namesIn(const std::string& folder) { return vrix::namesIn(folder); }

}  // namespace vrix
