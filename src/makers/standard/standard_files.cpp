#include "makers/standard/standard_files.h"

#include <cstdio>

#include "common/runtime_failure.h"
#include "makers/standard/file_facts.h"

namespace vrix {

namespace {

[[noreturn]] void refuse(FailureNumber number) { throw RuntimeFailure(number); }

// What stands in the way of a file at this path, before its existence is asked.
void checkPlace(const std::string& path) {
    const bool blank = path.substr(0, path.find('\0')).find_first_not_of(" \t") == std::string::npos;
    if (blank || kindOf(folderOf(path)) != PathKind::folder) refuse(FailureNumber::pathNotFound);
    if (kindOf(path) == PathKind::folder) refuse(FailureNumber::permissionDenied);
}

// The C library's streams: those of C++ would make the program twice as large.
class Stream : public TextStream {
public:
    Stream(const std::string& path, const char* mode) : file_(std::fopen(path.c_str(), mode)) {
        if (file_ == nullptr) refuse(FailureNumber::permissionDenied);
        std::setvbuf(file_, nullptr, _IOFBF, 65'536);
    }
    ~Stream() override {
        if (file_ != nullptr) std::fclose(file_);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    void close() override {
        if (file_ == nullptr) return;
        const bool failed = std::ferror(file_) != 0;
        const bool flushed = std::fclose(file_) == 0;
        file_ = nullptr;
        if (failed || !flushed) refuse(FailureNumber::permissionDenied);
    }

protected:
    std::FILE* file_;
};

class Writer final : public Stream {
public:
    explicit Writer(const std::string& path) : Stream(path, "wb") {}

    void writeLine(const std::string& text) override {
        // What comes behind a line that was lost is refused too: a file without an end shows that it is not whole.
        if (file_ == nullptr || std::ferror(file_) != 0 ||
            std::fwrite(text.data(), 1, text.size(), file_) != text.size() || std::fwrite("\r\n", 1, 2, file_) != 2) {
            refuse(FailureNumber::permissionDenied);
        }
    }
    std::string readLine() override { refuse(FailureNumber::permissionDenied); }
    bool atEnd() override { return true; }
};

class Reader final : public Stream {
public:
    explicit Reader(const std::string& path) : Stream(path, "rb") {}

    void writeLine(const std::string&) override { refuse(FailureNumber::permissionDenied); }
    std::string readLine() override {
        if (atEnd()) refuse(FailureNumber::inputPastEnd);
        std::string line;
        int next = std::getc(file_);
        for (; next != EOF && next != '\n'; next = std::getc(file_)) line += static_cast<char>(next);
        if (next == '\n' && line.ends_with('\r')) line.pop_back();
        return line;
    }
    bool atEnd() override { return file_ == nullptr || std::ungetc(std::getc(file_), file_) == EOF; }
};

}  // namespace

bool StandardFiles::exists(const std::string& path) { return kindOf(path) == PathKind::file; }

void StandardFiles::remove(const std::string& path) {
    checkPlace(path);
    if (!exists(path)) refuse(FailureNumber::fileNotFound);
    if (!removeFile(path)) refuse(FailureNumber::permissionDenied);
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
