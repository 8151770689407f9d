#pragma once

#include <utility>

#include "common/fixed.h"
#include "makers/embedded/code_page_registry.h"
#include "makers/embedded/embedded_registry.h"

namespace vrix {

// A registry in memory for the pages, whose texts are bytes of the system's code page. It ends with its object.
class MemoryRegistry final : public CodePageRegistry, Fixed {
public:
    // The environment's names and texts are UTF-8.
    explicit MemoryRegistry(Environment environment = {})
        : CodePageRegistry(stored_), stored_(std::move(environment)) {}

private:
    EmbeddedRegistry stored_;
};

}  // namespace vrix
