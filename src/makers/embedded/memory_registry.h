#pragma once

#include <utility>

#include "makers/embedded/embedded_registry.h"

namespace vrix {

// A registry in memory. It ends with its object.
class MemoryRegistry final : public EmbeddedRegistry {
public:
    explicit MemoryRegistry(Environment environment = {}) : EmbeddedRegistry(std::move(environment)) {}

private:
    RegistryStatus persist(const Change&) override { return RegistryStatus::success; }
};

}  // namespace vrix
