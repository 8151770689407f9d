#pragma once

namespace vrix {

// To be called before the program makes anything: the store's texts are UTF-8, and names are compared by the letters
// that the C library knows.
void useSystemTexts();

}  // namespace vrix
