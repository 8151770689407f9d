#include "makers/embedded/memory_registry.h"
#include "makers/kept/kept_keys.h"
#include "registry_suite.h"

namespace vrix {

TEST(MemoryRegistry, Conforms) {
    expectConforms([] { return std::make_unique<MemoryRegistry>(environmentLookup()); });
}

TEST(KeptKeys, AreNotSeen) {
    std::unique_ptr<MemoryRegistry> inner;
    const auto fresh = [&] {
        inner = std::make_unique<MemoryRegistry>(environmentLookup());
        return std::make_unique<KeptKeys>(*inner);
    };
    expectConforms(fresh);
    MemoryRegistry plain(environmentLookup());
    const auto kept = fresh();
    for (unsigned seed = 0; seed < 20; ++seed) {
        expectSameAnswers(seed, 1'000, plain, *kept);
        MemoryRegistry other(environmentLookup());
        expectSameSettings(seed, 500, other);
        expectKeepsKeysUnseen(other);
    }
}

}  // namespace vrix
