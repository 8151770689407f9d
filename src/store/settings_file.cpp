#include "store/settings_file.h"

namespace vrix {

SettingsFile::SettingsFile(Files& files, const std::string& path) {
    if (files.exists(path)) files.remove(path);
    stream_ = files.createText(path);
    stream_->writeLine("REGEDIT4");
    blank();
}

void SettingsFile::header(const std::string& key) {
    stream_->writeLine("[HKEY_LOCAL_MACHINE\\Software\\Vrix\\" + key + "]");
}

void SettingsFile::entry(const std::string& name, const std::string& data) {
    line_.assign(1, '"').append(name).append("\"=\"").append(data).append(1, '"');
    stream_->writeLine(line_);
}

void SettingsFile::blank() { stream_->writeLine(""); }

void SettingsFile::close() { stream_->close(); }

std::string escapedPath(const std::string& path) {
    const auto doubled = path.find("\\\\");
    const bool network = doubled != std::string::npos;
    const std::string kept = network ? path.substr(doubled + 2) : path;
    std::string escaped = network && !kept.empty() ? "\\\\\\\\" : "";
    for (const char c : kept) {
        if (c == '\\') escaped += c;
        escaped += c;
    }
    return escaped;
}

}  // namespace vrix
