#pragma once

#include "shell/toolkit.h"

namespace vrix {

// Fills the list of Create9 with every Topic but the one at `topicRow`, and marks those on which that one depends.
// Failure 9 or 13 for rows that the list of Topics does not have; a topicRow outside the dependency rows marks nothing.
void fillDependsList(Toolkit& toolkit, int topicRow);

}  // namespace vrix
