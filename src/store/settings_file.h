#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

namespace vrix {

// Writes a settings file: one Product as text that a registry editor merges. Section headers name keys below the family
// key. A write that the disk refuses is failure 70.
class SettingsFile {
public:
    // Replaces the file at the path, without a question, and writes the signature. Failures as in Files.
    SettingsFile(Files& files, const std::string& path);

    void header(const std::string& key);
    // An entry with the data as it stands.
    void entry(const std::string& name, const std::string& data);
    void blank();
    void close();

private:
    std::unique_ptr<TextStream> stream_;
    std::string line_;  // a buffer that all entries reuse
};

// Escapes a path for an entry: every backslash is doubled. A network path starts with four; anything in front of its
// first doubled backslash is lost.
std::string escapedPath(const std::string& path);

}  // namespace vrix
