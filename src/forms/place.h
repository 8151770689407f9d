#pragma once

#include "platform/screen.h"

namespace vrix {

// Where a control lies in its container, in 1/96 inch. A negative left counts from the container's right edge. A width
// of zero or less reaches to that edge, less that distance: -8 ends 8 before it. Top and height do the same.
struct Place {
    int left;
    int top;
    int width;
    int height;
};

// A rectangle in the form's client area, in 1/96 inch.
struct Bounds {
    int left;
    int top;
    int width;
    int height;
};

// The rectangle of a place in a container.
Bounds resolve(const Place& place, const Bounds& container);

}  // namespace vrix
