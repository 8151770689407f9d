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

    // False where the user chose a file whose path cannot be written: nothing is to change then.
    bool ShowOpen() { return take(dialog_.askOpen(question())); }
    bool ShowSave() { return take(dialog_.askSave(question())); }

private:
    FileQuestion question() const { return {DialogTitle, Filter, DefaultExt, InitDir, FileName}; }
    bool take(const std::optional<std::string>& chosen) {
        if (!chosen) return true;
        if (!chosen->empty()) FileName = *chosen;
        return !chosen->empty();
    }
    FileDialog& dialog_;
};

}  // namespace vrix
