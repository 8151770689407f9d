#pragma once

#include <memory>

#include "platform/registry.h"

namespace vrix {

// The registry of the machine by the platform's narrow calls: texts are bytes of the system's code page. It differs
// from the calls in two things: an empty text is written as its terminator, where the platform would get a null
// pointer; and environment variables are expanded by the wide call, since the narrow one counts characters where it
// should count bytes. A text of more than 32,766 characters is not expanded, and an expansion ends there.
std::unique_ptr<Registry> narrowRegistry();

// The same by the wide calls: texts are UTF-8, and unpaired surrogates are kept.
std::unique_ptr<Registry> wideRegistry(RegistryView view = RegistryView::own);

}  // namespace vrix
