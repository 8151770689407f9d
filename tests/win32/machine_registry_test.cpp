#include <windows.h>

#include <cstdlib>
#include <set>
#include <utility>

#include "common/code_page.h"
#include "makers/embedded/memory_registry.h"
#include "makers/kept/kept_keys.h"
#include "makers/win32/startup.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_registry.h"
#include "registry_suite.h"
#include "store/cregistry.h"
#include "store/cregistry_functions.h"

namespace vrix {

using namespace std::string_literals;

namespace {

class MachineRegistry : public testing::Test {
protected:
    MachineRegistry() {
        useSystemCodePage();
        for (const auto& [name, text] : testEnvironment) SetEnvironmentVariableA(name.c_str(), text.c_str());
    }
    ~MachineRegistry() override {
        forget();
        useCodePage(1252);
    }
    static void forget() {
        for (const char* key : {"Software\\Vrix.T", "Software\\Vrix.U"}) RegDeleteTreeA(HKEY_LOCAL_MACHINE, key);
    }
    Win32Registry registry;
};

TEST_F(MachineRegistry, ConformsAndAnswersRandomCallsAsTheEmbeddedOne) {
    const auto fresh = [&] {
        forget();
        return std::make_unique<KeptKeys>(registry);
    };
    expectConforms([&] { return forget(), std::make_unique<Win32Registry>(); }, true);
    expectConforms(fresh, true);
    const auto kept = fresh();
    MemoryRegistry embedded(environmentLookup());
    const char* asked = std::getenv("VRIX_RANDOM_CALLS");
    const int calls = asked == nullptr ? 2'000 : std::atoi(asked);
    for (unsigned seed = 0; seed < 10; ++seed) expectSameAnswers(seed, calls, embedded, *kept, true);
}

TEST_F(MachineRegistry, KeepsKeysUnseen) {
    forget();
    expectKeepsKeysUnseen(registry);
    forget();
    expectSameSettings(1, 2'000, registry);
}

TEST_F(MachineRegistry, ListsValuesAsSingleReadsGiveThem) {
    forget();
    const auto set = [](const std::wstring& name, DWORD type, const std::wstring& data) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Vrix.T\\listed", name.c_str(), type, data.data(),
                        static_cast<DWORD>(data.size() * sizeof data[0]));
    };
    for (const wchar_t* name : {L"a", L"empty", L"", L"z"}) set(name, REG_SZ, name);
    set(L"\u00fc\u20ac", REG_EXPAND_SZ, L"%TEMP%\u00fc");
    set(L"number", REG_DWORD, L"12");
    set(L"bytes", REG_BINARY, L"bytes");
    set(L"outside", REG_SZ, L"the code page \u0101");
    set(L"z\u0101", REG_SZ, L"the code page shows the name as the next");
    set(L"za", REG_SZ, L"found");
    set(L"\u3042", REG_SZ, L"the code page shows the name as none");
    set(L"long", REG_SZ, std::wstring(3'000, L'm'));
    set(std::wstring(2'000, L'\u00fc'), REG_SZ, L"found");
    cRegistry cursor(registry);
    cursor.ClassKey = hive::localMachine;
    cursor.SectionKey = "Software\\Vrix.T\\listed";
    std::vector<std::string> names;
    std::vector<Variant> values;
    std::int32_t count = 0;
    cursor.EnumerateValues(names, count, &values);
    EXPECT_EQ(count, 13);
    std::set<std::string> alone;  // read by themselves
    for (std::size_t i = 0; i < names.size(); ++i) {
        cursor.ValueKey = names[i];
        if (values[i] == Variant()) {
            alone.insert(names[i]);
        } else {
            EXPECT_EQ(values[i], cursor.Value()) << names[i];
        }
    }
    EXPECT_EQ(alone, (std::set<std::string>{"outside", "za", "?"}));
}

TEST_F(MachineRegistry, ListsNamesOfCharactersOfAnySize) {
    CPINFO page{};
    GetCPInfo(CP_ACP, &page);
    const bool longer = page.MaxCharSize > 1;
    std::set<std::string> expected, listed;
    for (const wchar_t* name : {longer ? L"安全" : L"\u00fc", longer ? L"漢字漢字" : L"\u00fc\u00fc\u00fc\u00fc",
                                longer ? L"表題" : L"a", longer ? L"道具" : L"ab"}) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Vrix.T\\Topics", name, REG_SZ, L"", sizeof *name);
        expected.insert(narrow(name));
    }
    KeptKeys kept(registry);
    for (Registry* each : {static_cast<Registry*>(&registry), static_cast<Registry*>(&kept)}) {
        const SettingsTable topics = cRegistryFunctions(*each).GetAllSettings("Vrix.T", "Topics");
        for (int row = 0; row < topics.rowCount(); ++row) listed.insert(topics.name(row));
        EXPECT_EQ(std::exchange(listed, {}), expected);
    }
}

TEST(Win32Disk, KeepsAJournalInAFolderThatTheCodePageCannotName) {
    const TemporaryFolder folder;
    const std::wstring local = folder.folder.wstring() + L"\\\u03a9\u0101\u4e88\U0001f600";
    CreateDirectoryW(local.c_str(), nullptr);
    SetEnvironmentVariableW(L"LOCALAPPDATA", local.c_str());
    const std::filesystem::path file = local + L"\\Store\\journal";
    const auto open = [] {
        return std::make_unique<JournalRegistry>(localDataFolder("Store") + "journal", nullptr, systemDisk());
    };
    for (auto [registry, i] = std::pair(open(), 0); i < 1'000; ++i)
        registry->setValue(hive::classesRoot, "v", 4, &i, 4);
    EXPECT_EQ(listing(*open(), hive::classesRoot), "v:4=\xE7\3\0\0;"s);
    const auto rewritten = std::filesystem::file_size(file);
    EXPECT_LT(rewritten, 100u);
    std::ofstream(file, std::ios::app | std::ios::binary) << "torn";
    open();
    EXPECT_EQ(std::filesystem::file_size(file), rewritten);
}

}  // namespace
}  // namespace vrix
