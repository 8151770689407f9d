#pragma once

#include "common/text_table.h"

namespace vrix {

// The SmartFields of the current Product, with their delimiters. Create19 has their count; elements behind them hold
// stale text.
struct SmartFieldModule {
    TextTable SmartFieldList;
};

}  // namespace vrix
