#include "platform/standard/standard_files.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "common/runtime_failure.h"
#include "platform/standard/native_path.h"

namespace vrix {

namespace {

[[noreturn]] void refuse(FailureNumber number) { throw RuntimeFailure(number); }

// What stands in the way of a file at this path, before its existence is asked.
void checkPlace(const std::string& path) {
    const bool blank = path.substr(0, path.find('\0')).find_first_not_of(" \t") == std::string::npos;
    if (blank || !isFolder(folderOf(path))) refuse(FailureNumber::pathNotFound);
    if (isFolder(nativePath(path))) refuse(FailureNumber::permissionDenied);
}

class Writer final : public TextStream {
public:
    explicit Writer(const std::string& path) : stream_(path.c_str(), std::ios::binary) { check(); }

    void writeLine(const std::string& text) override {
        stream_ << text << "\r\n";
        check();
    }
    std::string readLine() override { refuse(FailureNumber::permissionDenied); }
    bool atEnd() override { return true; }
    void close() override {
        if (!stream_.is_open()) return;
        stream_.close();
        check();
    }

private:
    void check() const {
        if (!stream_) refuse(FailureNumber::permissionDenied);
    }

    std::ofstream stream_;
};

class Reader final : public TextStream {
public:
    explicit Reader(const std::string& path) : stream_(path.c_str(), std::ios::binary) {
        if (!stream_) refuse(FailureNumber::permissionDenied);
    }

    void writeLine(const std::string&) override { refuse(FailureNumber::permissionDenied); }
    std::string readLine() override {
        if (atEnd()) refuse(FailureNumber::inputPastEnd);
        std::string line;
        std::getline(stream_, line);
        if (!stream_.eof() && line.ends_with('\r')) line.pop_back();
        return line;
    }
    bool atEnd() override { return stream_.peek() == std::ifstream::traits_type::eof(); }
    void close() override { stream_.close(); }

private:
    std::ifstream stream_;
};

}  // namespace

bool StandardFiles::exists(const std::string& path) {
    std::error_code failed;
    const auto file = nativePath(path);
    return std::filesystem::exists(file, failed) && !isFolder(file);
}

void StandardFiles::remove(const std::string& path) {
    checkPlace(path);
    if (!exists(path)) refuse(FailureNumber::fileNotFound);
    const auto file = nativePath(path);
    std::error_code failed;
    std::filesystem::remove(file, failed);
    if (!failed) return;
    // A read-only file does not go on Windows.
    std::filesystem::permissions(file, std::filesystem::perms::owner_write, std::filesystem::perm_options::add, failed);
    std::filesystem::remove(file, failed);
    if (failed) refuse(FailureNumber::permissionDenied);
}

std::unique_ptr<TextStream> StandardFiles::createText(const std::string& path) {
    checkPlace(path);
    return std::make_unique<Writer>(path);
}

std::unique_ptr<TextStream> StandardFiles::openText(const std::string& path) {
    checkPlace(path);
    if (!exists(path)) refuse(FailureNumber::fileNotFound);
    return std::make_unique<Reader>(path);
}

}  // namespace vrix
