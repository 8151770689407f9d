#pragma once

#include "common/text_table.h"

namespace vrix {

// The SmartFields of the Product at work, with their delimiters. How many there are, Create19 counts; elements behind
// them hold old text.
struct SmartFieldModule {
    TextTable SmartFieldList;
};

}  // namespace vrix
