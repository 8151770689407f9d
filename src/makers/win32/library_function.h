#pragma once

#include <windows.h>

namespace vrix {

// A function of a library of the platform, found while the program runs: older systems lack it, or its library is
// loaded only when it is needed. Null where the library or the function is missing.
template <class Function>
Function libraryFunction(const wchar_t* library, const char* name) {
    const HMODULE loaded = LoadLibraryW(library);
    if (loaded == nullptr) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

}  // namespace vrix
