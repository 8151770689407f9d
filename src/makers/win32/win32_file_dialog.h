#pragma once

#include "platform/file_dialog.h"

namespace vrix {

class Win32Screen;

// The platform's own dialogs, in front of all windows of the program. A path that the code page cannot encode is
// returned as its short path. Where it has none the user is told so.
class Win32FileDialog final : public FileDialog {
public:
    explicit Win32FileDialog(Win32Screen& screen) : screen_(screen) {}
    std::optional<std::string> askOpen(const FileQuestion& question) override;
    std::optional<std::string> askSave(const FileQuestion& question) override;

private:
    Win32Screen& screen_;
};

}  // namespace vrix
