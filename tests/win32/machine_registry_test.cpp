#include <windows.h>

#include <functional>

#include "failing_machine.h"
#include "makers/embedded/memory_registry.h"
#include "makers/standard/standard_files.h"
#include "makers/win32/win32_registry.h"
#include "registry_suite.h"
#include "store/cregistry_functions.h"

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
        return registry.createKey(hive::localMachine, path, rights, made) == RegistryStatus::success;
    };
    const auto set = [&](const char* text) { return registry.setValue(key, "v", valuetype::string, text, 2); };
    const auto close = [&] { return registry.closeKey(key) == RegistryStatus::success; };
    const auto save = [&](const char* text) { return make(key) && set(text) == RegistryStatus::success && close(); };
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
    EXPECT_TRUE(save("4") && make(key, access::queryValue) && set("5") == RegistryStatus::accessDenied && close());
    EXPECT_TRUE(deleteOutside() && make(key) && make(other) && key != other && deleteOutside());  // other made it
    EXPECT_TRUE(set("6") == RegistryStatus::keyDeleted && close() &&
                registry.closeKey(key) == RegistryStatus::invalidHandle);
    const auto read = [&] {
        char text[8] = "none";
        std::uint32_t type = 0, size = 0, room = sizeof text;
        const RegistryStatus opened = registry.openKey(hive::localMachine, path, access::queryValue, key);
        const RegistryStatus sized = registry.queryValue(key, "v", type, text, size);
        const RegistryStatus found = registry.queryValue(key, "v", type, text, room);
        EXPECT_TRUE(found != RegistryStatus::success || (sized == RegistryStatus::moreData && size == 2 && room == 2));
        return close() && opened == RegistryStatus::success && sized != RegistryStatus::fileNotFound ? std::string(text)
                                                                                                     : "missing";
    };
    EXPECT_TRUE(save("7") && read() == "7" && save("8") && read() == "8" && deleteOutside() && read() == "missing");
    EXPECT_TRUE(save("9") && read() == "9");
}

TEST(MachineRegistry, ListsValuesAsSingleReadsGiveThem) {
    using Then = std::function<void()>;
    Win32Registry registry;
    StandardFiles files;
    FailingMachine machine(registry, files);
    cRegistryFunctions watched(machine), direct(registry);
    const auto set = [&](const wchar_t* name, DWORD type, const std::wstring& data) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Vrix.T\\listed", name, type, data.data(),
                        static_cast<DWORD>(data.size() * sizeof data[0]));
    };
    const auto list = [&](const Then& beforeEachCall) {
        Sleep(200);  // what has changed just now is read value by value
        machine.counts = true;
        machine.calls.clear();
        machine.before = beforeEachCall;
        const SettingsTable table = watched.GetAllSettings("Vrix.T", "listed");
        std::string rows;
        for (int row = 0; row < table.rowCount(); ++row) rows += table.name(row) + '=' + table.text(row) + ';';
        return rows;
    };
    // Whether the list has the text, with something done while it is made.
    const auto shows = [&](const std::string& text, bool atEnd, const Then& then) {
        const auto rows = list([&] {
            const auto& calls = machine.calls;
            if (atEnd ? !calls.empty() && calls.back().ends_with('?') : calls.size() == 4) then();
        });
        return rows.find('=' + text + ';') != std::string::npos;
    };
    const auto listsAsRead = [&] { return list([] {}) == list([&] { registry.release(); }); };
    for (const wchar_t* name : {L"a", L"empty", L"", L"z"}) set(name, REG_SZ, name);
    set(L"\u00fc\u20ac", REG_EXPAND_SZ, L"%TEMP%\u00fc");
    set(L"number", REG_DWORD, L"12");
    set(L"bytes", REG_BINARY, L"bytes");
    EXPECT_TRUE(listsAsRead());
    EXPECT_TRUE(shows("new", false, [&] { set(L"a", REG_SZ, L"new"); }));
    EXPECT_TRUE(shows("new", true, [&] { set(L"a", REG_SZ, L"late"); }));  // as it stood at the listing's end
    EXPECT_TRUE(shows("x", true, [&] { set(L"a", REG_SZ, L"x"), direct.GetSetting("Vrix.T", "listed", "z", ""); }));
    EXPECT_TRUE(shows("", true, [&] { direct.DeleteSetting("Vrix.T", "listed", "a"); }));
    set(L"z\u0101", REG_SZ, L"shows as the next");
    set(L"za", REG_SZ, L"found");
    EXPECT_TRUE(listsAsRead());
    set(L"m", REG_SZ, std::wstring(3'000, L'm'));
    EXPECT_TRUE(listsAsRead());
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Vrix.T");
}

}  // namespace vrix
