#pragma once

#include <optional>
#include <string>

namespace vrix {

// What every program does at its start. Nothing here needs the windowing libraries, which the command line does not
// load.

// To be called first. From then on the process loads libraries from the system's folder only.
void hardenProcess();

// To be called before the program makes anything: its texts are bytes of the system's code page, and names are compared
// by the system's letters.
void useSystemTexts();

// The full path, in UTF-8 and with a separator at its end, of a folder below the user's local data, which is made where
// it is missing. Without local data, as in a stripped environment, it lies in the folder for temporary files.
std::string localDataFolder(const std::string& name);

// A variable of the environment, name and text in UTF-8. None where there is no such.
std::optional<std::string> environmentText(const std::string& name);

// What the running program says of itself, in UTF-8: its version, its width, the store that it edits, and where its
// guide lies.
std::string aboutProgram(const std::string& name, const std::string& version, const std::string& store);
// The width of the running program, in bits.
inline constexpr int programWidth = static_cast<int>(8 * sizeof(void*));

}  // namespace vrix
