#pragma once

#include <string>

#include "platform/file_dialog.h"

namespace vrix {

// A page's file dialog. It remembers the last file chosen; a cancel leaves that as it was.
class CommonDialog {
public:
    CommonDialog(FileDialog& dialog, const std::string& title, const std::string& filter, const std::string& extension,
                 const std::string& folder = {})
        : DialogTitle(title), Filter(filter), DefaultExt(extension), InitDir(folder), dialog_(dialog) {}

    std::string DialogTitle;
    std::string Filter;
    std::string DefaultExt;
    std::string InitDir;
    std::string FileName;

    void ShowOpen() { take(dialog_.askOpen(question())); }
    void ShowSave() { take(dialog_.askSave(question())); }

private:
    FileQuestion question() const { return {DialogTitle, Filter, DefaultExt, InitDir, FileName}; }
    void take(const std::optional<std::string>& chosen) {
        if (chosen) FileName = *chosen;
    }
    FileDialog& dialog_;
};

}  // namespace vrix
