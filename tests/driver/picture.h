#pragma once

#include <windows.h>

#include <string>

namespace vrix::driver {

// Keeps a part of the screen as a PNG file, once it stands still. Throws StepFailure for a part that shows nothing.
void takePicture(const RECT& area, const std::string& file);

}  // namespace vrix::driver
