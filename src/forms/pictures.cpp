#include "forms/pictures.h"

namespace vrix {

void TaskPicture::setPressed(bool pressed) {
    pressed_ = pressed;
    changed();
}

void TaskPicture::mouseUp(double x, double y) {
    const Bounds area = bounds();
    if (onRelease) onRelease(x > 0 && x < area.width && y > 0 && y < area.height);
}

}  // namespace vrix
