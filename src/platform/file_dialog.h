#pragma once

#include <optional>
#include <string>

namespace vrix {

// How a file dialog opens.
struct FileQuestion {
    std::string title;
    std::string filter;            // pairs of description and pattern, all separated by "|"
    std::string defaultExtension;  // with its dot: ".doc"
    std::string initialFolder;     // empty: the platform's choice
    std::string fileName;          // the name that the dialog opens with
};

// The platform's dialog for choosing one file.
class FileDialog {
public:
    virtual ~FileDialog() = default;

    // Each gives the full path of the chosen file, or nothing when the user cancels. The path is empty where the code
    // page cannot encode it; the user has been told so.
    virtual std::optional<std::string> askOpen(const FileQuestion& question) = 0;
    virtual std::optional<std::string> askSave(const FileQuestion& question) = 0;
};

}  // namespace vrix
