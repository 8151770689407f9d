#include <windows.h>

#include "platform/embedded/memory_registry.h"
#include "platform/win32/win32_registry.h"
#include "registry_suite.h"

namespace vrix {

TEST(MachineRegistry, ConformsAndAnswersRandomCallsAsTheEmbeddedOne) {
    for (const auto& [name, text] : testEnvironment) SetEnvironmentVariableA(name.c_str(), text.c_str());
    const auto fresh = [] {
        RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Vrix.T");
        return std::make_unique<Win32Registry>();
    };
    expectConforms(fresh, true);
    const auto real = fresh();
    MemoryRegistry embedded(environmentLookup());
    for (unsigned seed = 0; seed < 10; ++seed) expectSameAnswers(seed, 2'000, embedded, *real, true);
    fresh();
}

}  // namespace vrix
