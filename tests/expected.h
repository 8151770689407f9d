#pragma once

#include <gtest/gtest.h>

#include "files.h"

namespace vrix {

// Compares a long text with the file of that name in expected/, which was written by hand. If they differ, the new text
// is written to the build folder, for review.
inline void expectAsWritten(const std::string& name, const std::string& text) {
    const std::string written = bytesOf(VRIX_EXPECTED "/" + name);
    if (text != written) writeBytes(VRIX_FOUND "/" + name, text);
    EXPECT_EQ(text, written) << "The new text is " VRIX_FOUND "/" << name;
}

}  // namespace vrix
