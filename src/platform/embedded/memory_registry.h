#pragma once

#include <utility>

#include "platform/embedded/embedded_registry.h"

namespace vrix {

// A registry that lives in memory and goes with its object.
class MemoryRegistry final : public EmbeddedRegistry {
public:
    explicit MemoryRegistry(Environment environment = {}) : EmbeddedRegistry(std::move(environment)) {}

private:
    Status keep(const Change&) override { return Status::success; }
};

}  // namespace vrix
