#include "store/settings_file.h"

#include "common/code_page.h"

namespace vrix {

SettingsFile::SettingsFile(Files& files, const std::string& path) {
    if (files.exists(path)) files.remove(path);
    stream_ = files.createText(path);
    stream_->writeLine("REGEDIT4");
    blank();
}

void SettingsFile::header(const std::string& key) {
    stream_->writeLine("[HKEY_LOCAL_MACHINE\\Software\\Vrix\\" + wholeCharacters(key) + "]");
}

void SettingsFile::entry(const std::string& name, const std::string& data) {
    line_.assign(1, '"').append(wholeCharacters(name)).append("\"=\"").append(wholeCharacters(data)).append(1, '"');
    stream_->writeLine(line_);
}

void SettingsFile::blank() { stream_->writeLine(""); }

void SettingsFile::close() { stream_->close(); }

namespace {

// The position of a doubled backslash; npos if there is none.
std::size_t findDoubled(const std::string& path) {
    std::size_t at = findCharacter(path, '\\');
    while (at != std::string::npos && path.substr(at + 1, 1) != "\\") at = findCharacter(path, '\\', at + 1);
    return at;
}

}  // namespace

std::string escapedPath(const std::string& path) {
    const auto doubled = findDoubled(path);
    const bool network = doubled != std::string::npos;
    const std::string kept = network ? path.substr(doubled + 2) : path;
    std::string escaped = network && !kept.empty() ? "\\\\\\\\" : "";
    for (std::size_t at = 0; at < kept.size(); at += characterSize(kept, at)) {
        if (kept[at] == '\\') escaped += kept[at];
        escaped.append(kept, at, characterSize(kept, at));
    }
    return escaped;
}

}  // namespace vrix
