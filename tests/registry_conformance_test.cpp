#include "makers/embedded/memory_registry.h"
#include "registry_suite.h"

namespace vrix {

TEST(MemoryRegistry, Conforms) {
    expectConforms([] { return std::make_unique<MemoryRegistry>(environmentLookup()); });
}

TEST(EmbeddedRegistry, KeepsCharacters) {
    expectKeepsCharacters([] { return std::make_unique<EmbeddedRegistry>(environmentLookup()); });
}

}  // namespace vrix
