#include <windows.h>

#include <winternl.h>

#include <cstdlib>
#include <iostream>
#include <set>

#include "common/code_page.h"
#include "makers/embedded/code_page_registry.h"
#include "makers/embedded/memory_registry.h"
#include "makers/win32/startup.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_registry.h"
#include "product/product_store.h"
#include "registry_suite.h"
#include "store/cregistry_functions.h"

namespace vrix {

using namespace std::string_literals;

namespace {

class MachineRegistry : public testing::Test {
protected:
    MachineRegistry() {
        useSystemTexts();
        for (const auto& [name, text] : testEnvironment) {
            SetEnvironmentVariableW(utf8ToWide(name).c_str(), utf8ToWide(text).c_str());
        }
        forget();
    }
    ~MachineRegistry() override {
        forget();
        useCodePage(1252, westernEncoding());
        useLetterFolder(nullptr);
    }
    static void forget() {
        for (const char* key : {"Software\\Vrix.T", "Software\\Vrix.U", "Software\\Vrix\\Odd"}) {
            RegDeleteTreeA(HKEY_LOCAL_MACHINE, key);
        }
    }
    static int calls() {
        const char* asked = std::getenv("VRIX_RANDOM_CALLS");
        return asked == nullptr ? 1'000 : std::atoi(asked);
    }
    const std::unique_ptr<Registry> bytes = narrowRegistry();
    const std::unique_ptr<Registry> utf8 = wideRegistry();
    CodePageRegistry face{*utf8};
};

TEST_F(MachineRegistry, ConformsByNarrowAndWideCalls) {
    if (GetACP() == 1252) {
        expectConforms([] { return forget(), narrowRegistry(); }, true);
        expectConforms([&] { return forget(), std::make_unique<CodePageRegistry>(*utf8); }, true);
    }
    expectKeepsCharacters([] { return forget(), wideRegistry(); });
}

// On any code page, and with values of other programs: what the pages see of a UTF-8 registry is what the narrow calls
// show of the machine's registry.
TEST_F(MachineRegistry, AnswersThroughTheCodePageAsTheNarrowCallsDo) {
    std::cout << "code page " << GetACP() << std::endl;
    for (unsigned seed = 0; seed < 10 && !HasFailure(); ++seed) {
        forget();
        Caller narrow(*bytes, "Vrix.T", utf8.get()), wide(face, "Vrix.U", utf8.get());
        expectSameAnswers(seed, calls(), GetACP(), narrow, wide);
    }
}

TEST_F(MachineRegistry, AnswersRandomCallsAsTheEmbeddedOne) {
    EmbeddedRegistry embedded(environmentLookup());
    CodePageRegistry ours(embedded);
    for (unsigned seed = 0; seed < 10 && !HasFailure(); ++seed) {
        Caller first(ours, "Vrix.T", &embedded), second(*bytes, "Vrix.T", utf8.get());
        first.sorts = second.sorts = true;
        expectSameAnswers(seed, calls(), GetACP(), first, second);
    }
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
    const SettingsTable topics = cRegistryFunctions(*bytes).GetAllSettings("Vrix.T", "Topics");
    for (int row = 0; row < static_cast<int>(topics.cellCount() / 2); ++row) listed.insert(topics.name(row));
    EXPECT_EQ(listed, expected);
}

// Made by native calls: the documented ones cannot create such a name.
TEST_F(MachineRegistry, SkipsAValueWhoseNameHoldsAZeroCharacter) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_LOCAL_MACHINE, L"Software\\Vrix\\Odd", &key), ERROR_SUCCESS);
    using SetValue = NTSTATUS(NTAPI*)(HANDLE, UNICODE_STRING*, ULONG, ULONG, void*, ULONG);
    const auto set = reinterpret_cast<SetValue>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtSetValueKey")));
    wchar_t odd[] = L"a\0b";
    UNICODE_STRING name{3 * sizeof *odd, 4 * sizeof *odd, odd};
    ASSERT_EQ(set(key, &name, 0, REG_SZ, odd, 4), 0);
    ASSERT_EQ(RegSetValueExW(key, L"c", 0, REG_SZ, reinterpret_cast<const BYTE*>(odd), 4), ERROR_SUCCESS);
    RegCloseKey(key);
    const std::vector<StoredValue> values = ProductStore(*utf8).values({"Odd"});
    ASSERT_EQ(values.size(), 1u);
    EXPECT_EQ(values[0].name, "c");
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
    for (auto [registry, i] = std::pair(open(), 0); i < 1'000; ++i) {
        EXPECT_EQ(registry->setValue(hive::classesRoot, "v", 3, std::to_string(i)), RegistryStatus::success);
    }
    EXPECT_EQ(listing(*open(), hive::classesRoot), "v:3=999;");
    const auto rewritten = std::filesystem::file_size(file);
    EXPECT_LT(rewritten, 100u);
    std::ofstream(file, std::ios::app | std::ios::binary) << "torn";
    open();
    EXPECT_EQ(std::filesystem::file_size(file), rewritten);
}

}  // namespace
}  // namespace vrix
