#pragma once

#include "platform/screen.h"

namespace vrix {

// Where a control lies in its container, in 1/96 inch. A negative left or top counts from the far edge; a width or
// height of zero or less reaches to that distance before the far edge.
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

// The rectangle that a place comes to in a container.
Bounds resolve(const Place& place, const Bounds& container);

}  // namespace vrix
