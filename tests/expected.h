#pragma once

#include <gtest/gtest.h>

#include "files.h"

namespace vrix {

// Compares a long text with the file of that name in expected/, which was written by hand. Where they differ, the new
// text is left beside the build, to be read and, if it is right, to be taken over.
inline void expectAsWritten(const std::string& name, const std::string& text) {
    const std::string written = bytesOf(VRIX_EXPECTED "/" + name);
    if (text != written) writeBytes(VRIX_FOUND "/" + name, text);
    EXPECT_EQ(text, written) << "The new text is " VRIX_FOUND "/" << name;
}

}  // namespace vrix
