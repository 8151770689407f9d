#pragma once

#include <optional>
#include <string>

namespace vrix {

// To be called first. From then on the process loads libraries from the system's folder only.
void hardenProcess();

// To be called before the program makes anything: its texts are characters of the system's code page.
void useSystemCodePage();

// The full path, in UTF-8, of a file in a folder below the user's local data, which is made where it is missing.
// Without local data, as in a stripped environment, it lies in the folder for temporary files.
std::string localDataFile(const std::string& folder, const std::string& file);

// A variable of the environment. None where there is no such.
std::optional<std::string> environmentText(const std::string& name);

// Says a sentence in UTF-8 in a message box.
void tell(const std::string& sentence, const std::string& title);

}  // namespace vrix
