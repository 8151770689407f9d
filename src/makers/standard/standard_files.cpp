#include "makers/standard/standard_files.h"

#include <filesystem>  // for the separators of the system alone: its paths would bring in all of the locales
#include <string_view>
#include <utility>

#include "common/code_page.h"
#include "common/runtime_failure.h"

namespace vrix {

namespace {

[[noreturn]] void refuse(FailureNumber number) { throw RuntimeFailure(number); }

// Decodes a path of the pages for the disk. It ends at its first zero byte, as in all narrow calls.
std::string pathOf(const std::string& path) { return systemEncoding().decode(path.c_str()); }

// The folder of a path, the current one for a bare name. With the dot a bare drive is a folder too.
std::string folderOf(const std::string& path) {
    constexpr auto ends = std::filesystem::path::preferred_separator == '\\' ? "\\/:" : "/";
    return path.substr(0, path.find_last_of(ends) + 1) + '.';
}

constexpr std::size_t portion = 65'536;

class Writer final : public TextStream {
public:
    explicit Writer(std::unique_ptr<DiskFile> file) : file_(std::move(file)) {}
    ~Writer() override { handOn(); }

    // Lines behind a lost one are refused too, so that the file is visibly incomplete.
    void writeLine(const std::string& text) override {
        waiting_.append(text).append("\r\n");
        if (!file_ || isLost_ || (waiting_.size() > portion && !handOn())) refuse(FailureNumber::permissionDenied);
    }
    std::string readLine() override { refuse(FailureNumber::permissionDenied); }
    bool atEnd() override { return true; }
    void close() override {
        const bool isWhole = !file_ || (handOn() && file_->close());
        file_.reset();
        if (!isWhole) refuse(FailureNumber::permissionDenied);
    }

private:
    bool handOn() {
        isLost_ = isLost_ || (file_ && !file_->write(waiting_));
        waiting_.clear();
        return !isLost_;
    }

    std::unique_ptr<DiskFile> file_;
    std::string waiting_;
    bool isLost_ = false;
};

// Reads the whole file at once when it is opened. A read error counts as the end of the file.
class Reader final : public TextStream {
public:
    explicit Reader(const std::unique_ptr<DiskFile>& file) {
        for (auto part = file->read(portion); part && !part->empty(); part = file->read(portion)) bytes_ += *part;
    }

    void writeLine(const std::string&) override { refuse(FailureNumber::permissionDenied); }
    std::string readLine() override {
        if (atEnd()) refuse(FailureNumber::inputPastEnd);
        const std::size_t end = bytes_.find('\n', at_);
        std::string line = bytes_.substr(at_, end - at_);
        at_ = end == std::string::npos ? bytes_.size() : end + 1;
        if (end != std::string::npos && line.ends_with('\r')) line.pop_back();
        return line;
    }
    bool atEnd() override { return at_ >= bytes_.size(); }
    void close() override { bytes_.clear(); }

private:
    std::string bytes_;
    std::size_t at_ = 0;  // the position of the next byte to read
};

template <class Stream>
std::unique_ptr<TextStream> opened(Disk& disk, const std::string& path, FileUse use) {
    auto file = disk.open(path, use);
    if (!file) refuse(FailureNumber::permissionDenied);
    return std::make_unique<Stream>(std::move(file));
}

}  // namespace

bool StandardFiles::exists(const std::string& path) { return disk_.kindOf(pathOf(path)) == PathKind::file; }

// The path for the disk. Refuses a path at which no file can be.
std::string StandardFiles::placeOf(const std::string& path) {
    const std::string place = pathOf(path);
    const bool isBlank = place.find_first_not_of(" \t") == std::string::npos;
    if (isBlank || disk_.kindOf(folderOf(place)) != PathKind::folder) refuse(FailureNumber::pathNotFound);
    if (disk_.kindOf(place) == PathKind::folder) refuse(FailureNumber::permissionDenied);
    return place;
}

std::string StandardFiles::existing(const std::string& path) {
    std::string place = placeOf(path);
    if (disk_.kindOf(place) != PathKind::file) refuse(FailureNumber::fileNotFound);
    return place;
}

void StandardFiles::remove(const std::string& path) {
    if (!disk_.remove(existing(path))) refuse(FailureNumber::permissionDenied);
}

std::unique_ptr<TextStream> StandardFiles::createText(const std::string& path) {
    return opened<Writer>(disk_, placeOf(path), FileUse::replace);
}

std::unique_ptr<TextStream> StandardFiles::openText(const std::string& path) {
    return opened<Reader>(disk_, existing(path), FileUse::read);
}

}  // namespace vrix
