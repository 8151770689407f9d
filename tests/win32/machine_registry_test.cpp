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

TEST(MachineRegistry, KeepsClosedKeysOpenUnseen) {
    const std::string path = "Software\\Vrix.T\\kept";
    Win32Registry registry;
    RegistryKey key = 0, other = 0;
    const auto make = [&](RegistryKey& made, std::uint32_t rights = access::change) {
        return registry.createKey(hive::localMachine, path, rights, made) == Status::success;
    };
    const auto set = [&](const char* text) { return registry.setValue(key, "v", valuetype::string, text, 2); };
    const auto close = [&] { return registry.closeKey(key) == Status::success; };
    const auto save = [&](const char* text) { return make(key) && set(text) == Status::success && close(); };
    const auto stored = [&] {
        char text[8] = "none";
        DWORD size = sizeof text;
        RegGetValueA(HKEY_LOCAL_MACHINE, path.c_str(), "v", RRF_RT_REG_SZ, nullptr, text, &size);
        return std::string(text);
    };
    const auto deleteOutside = [&] { return RegDeleteKeyA(HKEY_LOCAL_MACHINE, path.c_str()) == ERROR_SUCCESS; };
    EXPECT_TRUE(save("1") && stored() == "1" && save("2") && stored() == "2");
    EXPECT_TRUE(deleteOutside() && save("3") && stored() == "3");                          // made again by the write
    EXPECT_TRUE(save("3") && deleteOutside() && make(key) && close() && deleteOutside());  // and by the close
    EXPECT_TRUE(save("4") && make(key, access::queryValue) && set("5") == Status::accessDenied && close());
    EXPECT_TRUE(deleteOutside() && make(key) && make(other) && key != other && deleteOutside());  // other made it
    EXPECT_TRUE(set("6") == Status::keyDeleted && close() && registry.closeKey(key) == Status::invalidHandle);
    const auto read = [&] {
        char text[8] = "none";
        std::uint32_t type = 0, size = 0, room = sizeof text;
        const Status opened = registry.openKey(hive::localMachine, path, access::queryValue, key);
        const Status sized = registry.queryValue(key, "v", type, text, size);
        const Status found = registry.queryValue(key, "v", type, text, room);
        EXPECT_TRUE(found != Status::success || (sized == Status::moreData && size == 2 && room == 2));
        return close() && opened == Status::success && sized != Status::fileNotFound ? std::string(text) : "missing";
    };
    EXPECT_TRUE(save("7") && read() == "7" && save("8") && read() == "8" && deleteOutside() && read() == "missing");
    EXPECT_TRUE(save("9") && read() == "9");
}

}  // namespace vrix
