#pragma once

#include "platform/host.h"

namespace vrix {

// A system of the POSIX kind: it has no registry, and its shells know wildcards.
class PosixHost final : public Host {
public:
    bool isAttended() override;
    std::string readLine() override;
    std::string readAll() override;
    void write(const std::string& text) override;
    void writeError(const std::string& text) override;
    void flush() override;

    std::optional<std::string> readFile(const std::string& path) override;
    void writeFile(const std::string& path, const std::string& bytes) override;
    void makeFolder(const std::string& path) override;
    std::vector<std::string> filesOf(const std::string& pattern) override { return {pattern}; }

    std::unique_ptr<Registry> registry(RegistryView) override { return nullptr; }
    RegistryView ownView() override { return RegistryView::bits64; }
    // That of Western Windows systems, from which most journals and files come.
    unsigned codePage() override { return 1252; }
    std::unique_ptr<Encoding> encoding(unsigned codePage) override;
    std::unique_ptr<JournalDisk> journalDisk() override;
    std::string localDataFile(const std::string& folder, const std::string& file) override;
    std::time_t now() override { return std::time(nullptr); }
};

}  // namespace vrix
