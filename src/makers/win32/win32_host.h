#pragma once

#include "platform/host.h"

namespace vrix {

// Windows as a console program sees it. Its output waits for the end, or for much of it.
class Win32Host final : public Host {
public:
    Win32Host() = default;
    ~Win32Host() override { handOn(); }
    Win32Host(const Win32Host&) = delete;
    Win32Host& operator=(const Win32Host&) = delete;

    bool isAttended() override;
    std::string readLine() override;
    std::string readAll() override;
    void write(const std::string& text) override;
    void writeError(const std::string& text) override;
    void flush() override;

    std::optional<std::string> readFile(const std::string& path) override;
    void writeFile(const std::string& path, const std::string& bytes) override;
    void makeFolder(const std::string& path) override;
    std::vector<std::string> filesOf(const std::string& pattern) override;

    std::unique_ptr<Registry> registry(RegistryView view) override;
    RegistryView ownView() override;
    unsigned codePage() override;
    std::unique_ptr<Encoding> encoding(unsigned codePage) override;
    std::unique_ptr<JournalDisk> journalDisk() override;
    std::string localDataFile(const std::string& folder, const std::string& file) override;
    std::time_t now() override { return std::time(nullptr); }

private:
    void handOn();
    std::string waiting_;
    bool isWhole_ = true;  // all of it has arrived
};

// Texts of the system as UTF-8.
std::vector<std::string> utf8Texts(const std::vector<std::wstring>& texts);

}  // namespace vrix
