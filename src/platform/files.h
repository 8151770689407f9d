#pragma once

#include <memory>
#include <string>

namespace vrix {

// A text file open for reading or for writing. Lines end with CR LF when written, with CR LF or LF when read.
class TextStream {
public:
    virtual ~TextStream() = default;

    // A write that the platform refuses is failure 70.
    virtual void writeLine(const std::string& text) = 0;
    // The next line without its end; failure 62 past the end of the file.
    virtual std::string readLine() = 0;
    virtual bool atEnd() = 0;
    virtual void close() = 0;
};

// Files by path, in bytes of the system code page. A bare name lies in the current folder.
// Failures: 53 no such file, 70 not permitted or a folder, 76 a missing folder or a path of blanks only.
class Files {
public:
    virtual ~Files() = default;

    virtual bool exists(const std::string& path) = 0;                             // a folder does not count
    virtual void remove(const std::string& path) = 0;                             // a read-only file too
    virtual std::unique_ptr<TextStream> createText(const std::string& path) = 0;  // replaces what is there
    virtual std::unique_ptr<TextStream> openText(const std::string& path) = 0;
};

}  // namespace vrix
