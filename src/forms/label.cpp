#include "forms/label.h"

namespace vrix {

void Label::setCaption(const std::string& caption) {
    caption_ = caption;
    changed();
}

}  // namespace vrix
