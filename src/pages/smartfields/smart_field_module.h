#pragma once

#include "common/text_table.h"

namespace vrix {

// The SmartFields of the Product at work, with their delimiters. Elements at or behind the page's count are ignored.
struct SmartFieldModule {
    TextTable SmartFieldList;
};

}  // namespace vrix
