#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "common/code_page.h"
#include "expected.h"
#include "files.h"
#include "platform/console.h"
#include "platform/forwarding_registry.h"
#include "platform/machine.h"
#include "registry_suite.h"
#include "stubs.h"
#include "test_encoding.h"
#include "vrix/vrix.h"

namespace vrix {

// A registry in which the key of options has a value that no call can read.
class OddRegistry final : public ForwardingRegistry {
public:
    using ForwardingRegistry::ForwardingRegistry;
    RegistryStatus listValues(RegistryKey key, std::vector<std::string>& names,
                              std::vector<ValueData>* values) override {
        const RegistryStatus status = inner().listValues(key, names, values);
        if (std::find(names.begin(), names.end(), "AllowNoTOC") == names.end()) return status;
        names.insert(names.begin(), std::string("a\0b", 3));
        if (values != nullptr) values->insert(values->begin(), ValueData());
        return status;
    }
};

// A system with a registry in memory, and a folder of its own with files to work in and local data.
class TestSystem final : public Console, public Machine {
public:
    TestSystem() {
        for (const char* name : {"files", "data"}) std::filesystem::create_directory(temporary.folder / name);
        std::filesystem::current_path(temporary.folder / "files");
        writeBytes("sample.kls", bytesOf(VRIX_EXPECTED "/sample.kls"));
    }
    ~TestSystem() override { std::filesystem::current_path(temporary.folder.parent_path()); }
    TestSystem(const TestSystem&) = delete;
    TestSystem& operator=(const TestSystem&) = delete;

    bool isAttended() override { return !answer.empty(); }
    std::string readLine() override { return answer; }
    std::string readAll() override { return input; }
    void write(const std::string& text) override { out += text; }
    void writeError(const std::string& text) override { err += text; }
    bool flush() override { return takesOutput; }
    std::unique_ptr<Registry> registry(RegistryView view) override {
        if (!hasRegistry) return nullptr;
        Registry& chosen = view == RegistryView::bits32 ? narrow : wide;
        if (isOdd) return std::make_unique<OddRegistry>(chosen);
        return std::make_unique<ForwardingRegistry>(chosen);
    }
    RegistryView ownView() override { return RegistryView::bits64; }
    unsigned codePage() override { return 1252; }
    std::unique_ptr<Encoding> encoding(unsigned number) override { return testEncoding(number); }
    Disk& disk() override { return disk_; }
    std::string localDataFolder(const std::string& name) override {
        const std::string folder = temporary.path("data") + '/' + name;
        if (hasLocalData) disk_.makeFolder(folder);
        return folder + '/';
    }
    std::time_t now() override { return time++; }

    // Runs a command and gives its exit code and all that it printed.
    std::string run(const std::vector<std::string>& arguments) {
        out = err = "";
        const int code = runVrix(arguments, *this, *this);
        return std::to_string(code) + '|' + out + err;
    }
    std::string tree() { return listing(wide, hive::localMachine); }

    StubRegistry wide;
    StubRegistry narrow;
    std::string answer, input, out, err;
    bool hasRegistry = true;
    bool isOdd = false;
    bool takesOutput = true;
    bool hasLocalData = true;
    std::time_t time = 1'800'000'000;
    TemporaryFolder temporary;
    StubDisk disk_;
};

// Runs commands on that system, in UTF-8 as the program does.
class Vrix : public testing::Test {
protected:
    void SetUp() override {
        static const auto utf8 = testEncoding(65001);
        useCodePage(65001, *utf8);
    }
    void TearDown() override { useCodePage(1252, westernEncoding()); }
    std::string run(const std::vector<std::string>& arguments) { return host.run(arguments); }
    // The code alone.
    char code(const std::vector<std::string>& arguments) { return run(arguments)[0]; }
    void write(const std::string& name, const std::string& text,
               const std::string& section = "Toolkit\\SampleKey\\Options") {
        ASSERT_TRUE(host.wide.replay(
            {Change::Kind::setValue, "Software\\Vrix\\" + section, name, valuetype::string, text + '\0'}));
    }
    std::string latest() {
        run({"backups", "--json"});
        return nlohmann::json::parse(host.out).at(0).at("file");
    }

    TestSystem host;
};

}  // namespace vrix
