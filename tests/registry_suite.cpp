#include "registry_suite.h"

#include <algorithm>
#include <random>

#include "common/runtime_failure.h"
#include "makers/kept/kept_keys.h"
#include "store/cregistry_functions.h"
#include "stubs.h"

namespace vrix {

using namespace std::string_literals;

const std::map<std::string, std::string> testEnvironment = {
    {"vrix_a", "<A>"}, {"vrix b", "<B>"}, {"vrix_empty", ""}, {"vrix_loop", "%VRIX_A%"}, {"vrix_\xE9", "\x80\xE9"}};

Environment environmentLookup() {
    return [](const std::string& name) {
        const auto found = testEnvironment.find(lowerCase(name));
        return found == testEnvironment.end() ? std::nullopt : std::optional(found->second);
    };
}

std::unique_ptr<JournalRegistry> openedJournal(const std::string& path, bool isFree) {
    static StubDisk free(true), held(false);
    return std::make_unique<JournalRegistry>(path, environmentLookup(), isFree ? free : held);
}

std::string listing(Registry& registry, RegistryKey top, bool sorted) {
    std::vector<std::string> items;
    char name[1'000];
    std::uint32_t length = sizeof name;
    std::optional<ValueData> value;
    for (std::uint32_t i = 0; registry.enumValue(top, i, name, length, &value) == RegistryStatus::success;
         ++i, length = sizeof name) {
        std::uint32_t type = 0;
        std::uint32_t size = 300;
        std::string data(size, '\0');
        EXPECT_EQ(registry.queryValue(top, name, type, data.data(), size), RegistryStatus::success);
        EXPECT_TRUE(value && value->type == type && value->bytes == data.substr(0, size)) << name;
        items.push_back(name + (':' + std::to_string(type)) + '=' + data.substr(0, size) + ';');
    }
    for (std::uint32_t i = 0; registry.enumKey(top, i, name, length) == RegistryStatus::success; ++i) {
        RegistryKey opened = 0;
        EXPECT_EQ(registry.openKey(top, name, access::change, opened), RegistryStatus::success);
        items.push_back(name + ('{' + listing(registry, opened, sorted)) + "};");
        registry.closeKey(opened);
    }
    if (sorted) std::sort(items.begin(), items.end());
    std::string all;
    for (const std::string& item : items) all += item;
    return all;
}

Caller::Caller(Registry& called, bool listsSorted) : registry(called), sorted(listsSorted) {
    EXPECT_EQ(registry.createKey(hive::localMachine, "Software\\Vrix.T", access::change, keys[0]),
              RegistryStatus::success);
}

Caller::~Caller() {
    for (const RegistryKey key : keys) registry.closeKey(key);
}

std::string Caller::answer(const Call& call) {
    const RegistryKey key = keys[call.key];
    const auto length = static_cast<std::uint32_t>(call.data.size());
    RegistryKey opened = 0;
    std::string room(300, '#');
    std::string rest;
    std::uint32_t type = 0;
    std::uint32_t size = call.what == Do::values ? call.to : call.number;
    RegistryStatus status = RegistryStatus::success;
    switch (call.what) {
        case Do::open: status = registry.openKey(key, call.text, call.number, opened); break;
        case Do::make: status = registry.createKey(key, call.text, call.number, opened); break;
        case Do::remove: status = registry.deleteKey(key, call.text); break;
        case Do::erase: status = registry.deleteValue(key, call.text); break;
        case Do::query:
            status = registry.queryValue(key, call.text, type, room.data(), size);
            rest = ' ' + std::to_string(type) + ' ' + room.substr(0, size);
            if (status == RegistryStatus::moreData) return "234" + rest;
            break;
        case Do::set: status = registry.setValue(key, call.text, call.number, call.data.c_str(), length); break;
        case Do::setNull: status = registry.setValue(key, call.text, 1, nullptr, size); break;
        case Do::names: status = registry.enumKey(key, call.number, room.data(), call.to); break;
        case Do::values: status = registry.enumValue(key, call.number, room.data(), size); break;
        case Do::longest: status = registry.queryInfoKey(key, size); break;
        case Do::tree: return listing(registry, key, sorted);
        case Do::expand: return registry.expandEnvironment(call.text);
        case Do::close: status = registry.closeKey(key); break;
    }
    if (call.what == Do::close && call.key < 6) keys[call.key] = 0;
    if (call.what <= Do::make) {
        EXPECT_EQ(opened != 0, status == RegistryStatus::success);
        registry.closeKey(std::exchange(keys[call.to], opened));
    }
    if (call.what == Do::names || call.what == Do::values) {
        const auto end = room.find('\0');
        rest = ' ' + room.substr(0, end);
        EXPECT_TRUE(end == std::string::npos || room.find_first_not_of('#', end + 1) == std::string::npos);
    }
    if (call.what == Do::values || call.what == Do::longest) rest += ' ' + std::to_string(size);
    return std::to_string(static_cast<int>(status)) + (status == RegistryStatus::success ? rest : "");
}

void expectConforms(const std::function<std::unique_ptr<Registry>()>& fresh, bool isReal) {
    using enum Do;
    const std::string lax = isReal ? "0" : "87";
    std::string deep;
    while (deep.size() < 200) deep += "d\\";
    const std::string n255(255, 'n');
    const std::string v16k(16'383, 'v');
    const std::string bars(260, '\\');
    const std::string y30k(30'000, 'y');
    // Calls of one subject share lines.
    // clang-format off
    std::vector<std::vector<Call>> scenes = {
        // Keys by path.
        {{make, "a\\b\\c"}, {open, "A\\B\\C\\"}, {make, "a\\\\d\\\\"}, {open, "a\\D"}, {make, "s/l"}, {open, "S/L"},
         {make, "end "}, {open, "end", "2"}, {make, "cut\0off"s}, {open, "cut"}, {open}, {make}, {open, "\\", "161"},
         {make, "\xE9\x9A\xF7\xFF"}, {open, "\xC9\x8A\xF7\x9F"}, {open, "\xE9\x9A\xD7\xFF", "2"}, {make, "\\x", "161"},
         {remove, "\\a", "161"}, {open, "a\\x\\y", "2"}, {remove, "x", "2"}, {make, n255}, {remove, n255},
         {make, n255 + "n", lax}, {make, n255 + "nn", "87"}, {open, n255 + "nn", "87"}, {make, "p" + bars.substr(1)},
         {open, "P"}, {open, "p" + bars, "234"}, {make, "p" + bars, "234"}, {remove, "p" + bars, "234"}},
        // The order of making, and the first spelling.
        {{set, "m"}, {set, "Z"}, {set, "a"}, {set, "M", "0", 0, 3, 0, "1"}, {erase, "z"}, {set, "z"}, {make, "k"},
         {make, "D"}, {make, "x"}, {make, "K"}, {remove, "d"}, {make, "d"},
         {tree, "", isReal ? "a:63=;m:3=1;z:63=;d{};k{};x{};" : "m:3=1;a:63=;z:63=;k{};x{};d{};"}},
        // Bytes by type. A text gets the terminator that was not counted; no data of size 1 is an empty text.
        {{set, "v", "0", 0, 1, 0, "a\0\x80\xE9"s}, {query, "V", "0 1 a\0\x80\xE9\0"s}, {query, "v", "234 1 #####", 0, 4},
         {query, "v", "234 1 #####", 0, 0}, {query, "v", "0 1 a\0\x80\xE9\0"s, 0, 5}, {query, "w", "2"},
         {set, "v", "0", 0, 1, 0, "b\0"s}, {query, "v", "0 1 b\0"s}, {set, "v", "0", 0, 2, 0, "b"},
         {query, "v", "0 2 b\0"s}, {set, "v", "0", 0, 7, 0, "b"}, {query, "v", "0 7 b\0"s}, {set, "v", "0", 0, 1},
         {query, "v", "0 1 ", 0, 0}, {set, "v", "0", 0, 4, 0, "abc"}, {query, "v", "0 4 abc"}, {setNull, "v", "998"},
         {setNull, "v", "0", 0, 1}, {query, "v", "0 1 \0"s}, {setNull, "v", "0", 0, 0}, {query, "v", "0 1 "},
         {set, "\0x"s, "0", 0, ~0u, 0, "q"}, {query, "", "0 4294967295 q"}},
        // Lengths of names.
        {{longest, "", "0 0"}, {set, "ab"}, {set, "c"}, {set, "de"}, {erase, "AB"}, {longest, "", "0 2"}, {erase, "de"},
         {longest, "", "0 1"}, {set, v16k}, {longest, "", "0 16383"}, {erase, v16k}, {set, v16k + "v", "87"},
         {erase, v16k + "v", "2"}},
        // Enumeration into little room, and past the end.
        {{set, "abc"}, {make, "Sub"}, {values, "", "0 abc 3", 0, 0, 4}, {values, "", "234", 0, 0, 3},
         {values, "", "234", 0, 0, 0}, {names, "", "0 Sub", 0, 0, 4}, {names, "", "234", 0, 0, 3},
         {names, "", "234", 0, 0, 0}, {values, "", "259", 0, 1, 0}, {names, "", "259", 0, ~0u, 9}},
        // A key with subkeys stays; values go with their key.
        {{make, "a\\b", "0", 0, 63, 1}, {set, "v", "0", 1}, {remove, "a", "5"}, {remove, "A\\b"}, {remove, "a"},
         {tree, "", ""}},
        // Handles of a deleted key; a key made again is another one.
        {{make, "k", "0", 0, 63, 1}, {open, "k", "0", 0, 1, 2}, {remove, "", "0", 1}, {make, "k", "0", 0, 63, 3},
         {open, "\\", "1018", 1}, {make, "x", "1018", 1}, {remove, "", "1018", 1}, {set, "v", "1018", 1},
         {erase, "v", "1018", 1}, {query, "v", "1018", 1}, {values, "", "1018", 1}, {names, "", "1018", 1},
         {longest, "", "1018", 1}, {set, "v", "5", 2}, {close, "", "0", 1}, {set, "v", "0", 3},
         {make, "Software\\Vrix.T\\k", "0", 8, 63, 4}, {remove, "k"}, {close, "", "0", 4},
         {open, "Software\\Vrix.T\\k", "2", 8}},
        // Handles of nothing, and of a key that was closed.
        {{open, "\\", "6", 7}, {make, "x", "6", 7}, {remove, "", "6", 7}, {set, "v", "6", 7}, {erase, "v", "6", 7},
         {query, "v", "6", 7}, {values, "", "6", 7}, {names, "", "6", 7}, {longest, "", "6", 7}, {close, "", "6", 7},
         {make, "k", "0", 0, 63, 6}, {close, "", "0", 6}, {set, "v", "6", 6}, {close, "", "6", 6}},
        // Five hundred levels, and more than there may be.
        {{make, deep, "0", 0, 63, 1}, {make, deep, "0", 1, 63, 1}, {make, deep, "0", 1, 63, 1}, {make, deep, "0", 1, 63, 1},
         {make, deep, "0", 1, 63, 1}, {make, deep, lax, 1}},
        // The hives.
        {{make, "vrix.t", "0", 9}, {open, "SOFTWARE\\classes\\VRIX.t", "0", 8}, {remove, "vrix.t", "0", 9},
         {remove, "", "5", 8}, {remove, "Software", "5", 8}, {remove, "", "5", 9}, {make, "Vrix.T", lax, 8},
         {remove, "Vrix.T", isReal ? "0" : "2", 8}, {open, "", "0", 8, 1, 1}, {set, "vrix", "0", 1},
         {erase, "VRIX", "0", 8}, {close, "", "0", 8}},
        // Environment names.
        {{expand, "100%", "100%"}, {expand, "%%", "%%"}, {expand, "a%vrix_a%%Vrix B%b", "a<A><B>b"},
         {expand, "%VRIX_EMPTY%", ""}, {expand, "%VRIX_LOOP%", "%VRIX_A%"}, {expand, "%%VRIX_A%%", "%%VRIX_A%%"},
         {expand, "5% of %VRIX_A%", "5% of %VRIX_A%"}, {expand, "%x%x%VRIX_A%", "%x%x<A>"},
         {expand, "\xFF%VRIX_\xE9%", "\xFF\x80\xE9"}, {expand, "%VRIX_A%\0%VRIX_A%"s, "<A>"},
         {expand, y30k + "%VRIX_A%", y30k + "<A>"}, {expand, y30k + y30k, y30k + y30k}},
    };
    // A handle has the rights with which it was opened; they do not matter below it.
    for (unsigned rights = 0; rights < 64; ++rights) {
        const std::string writes = rights / 2 % 2 != 0 ? "0" : "5";
        const bool reads = rights % 2 != 0;
        scenes.push_back({{make, "k\\below"}, {open, "k", "0", 0, rights, 1}, {set, "v", writes, 1},
                          {erase, "v", writes, 1}, {query, "v", reads ? "2" : "5", 1},
                          {longest, "", reads || isReal ? "0 0" : "5", 1}, {values, "", reads ? "259" : "5", 1},
                          {make, "n", "0", 1}, {remove, "n", "0", 1},
                          {names, "", rights / 8 % 2 != 0 ? "0 below" : "5", 1, 0, 9}});
    }
    // clang-format on
    for (std::size_t scene = 0; scene < scenes.size(); ++scene) {
        const auto registry = fresh();
        Caller caller(*registry);
        for (std::size_t i = 0; i < scenes[scene].size(); ++i) {
            EXPECT_EQ(caller.answer(scenes[scene][i]), scenes[scene][i].answer) << "scene " << scene << ", call " << i;
        }
    }
}

void expectSameAnswers(unsigned seed, int calls, Registry& left, Registry& right, bool isReal) {
    using enum Do;
    const std::vector<std::string> paths = {
        "a", "A\\", "b\\", "\\\\bB", "\xE9x", "\xC9X\\", "c d", "a\0b"s, '\\' + std::string(255, 'k') + '\\'};
    const std::vector<std::string> texts = {"%", "%", "VRIX_A", "vrix b", "%VRIX_EMPTY%", "%vrix_loop%", "x", "\0"s};
    std::mt19937 random(seed);
    const auto below = [&](std::size_t end) { return static_cast<unsigned>(random() % end); };
    Caller first(left, isReal);
    Caller second(right, isReal);
    for (int i = 0; i < calls && !testing::Test::HasFailure(); ++i) {
        Call call{static_cast<Do>(below(13)), "", "", below(6)};
        const auto& parts = call.what == expand ? texts : paths;
        for (unsigned count = below(4); count > 0; --count) call.text += parts[below(parts.size())];
        call.number = call.what <= make ? std::vector{63u, 63u, 1u, 8u, 3u, 2u}[below(6)] : below(9);
        call.to = call.what <= make ? 1 + below(5) : 300;
        call.data = "ab\xE9\0%A%\0\0q"s.substr(0, below(11));
        const bool ends = call.what == close || (call.what == remove && call.text.c_str()[0] == '\0');
        const bool differs = call.what == names || call.what == values || (call.what == longest && call.key != 0);
        if ((call.key == 0 && ends) || (isReal && differs)) continue;
        if (call.key == 0 && call.what <= make) call.key = 8, call.text = "Software\\Vrix.T\\" + call.text;
        EXPECT_EQ(first.answer(call), second.answer(call)) << "call " << i << " is " << static_cast<int>(call.what);
    }
    EXPECT_EQ(first.answer({tree}), second.answer({tree}));
}

void expectKeepsKeysUnseen(Registry& registry) {
    using enum Do;
    const std::string path = "Software\\Vrix.T\\kept";
    KeptKeys kept(registry);
    Caller we(kept);
    Caller others(registry);
    const Call makeIt{make, path, "0", 8, 63, 1}, openIt{open, path, "0", 8, 63, 1}, closeIt{close, "", "0", 1};
    const Call write{set, "v", "0", 1}, deleteIt{remove, "kept"}, isThere{open, "kept"}, isMissing{open, "kept", "2"};
    const Call makeToRead{make, path, "0", 8, 1, 1};
    // clang-format off
    const std::vector<std::pair<Caller*, Call>> steps = {
        // The write makes a key anew that was deleted meanwhile. So do the close, and a call on another key.
        {&we, makeIt}, {&we, write}, {&others, isThere}, {&we, closeIt}, {&others, deleteIt},
        {&we, makeIt}, {&others, isMissing}, {&we, write}, {&others, isThere}, {&we, closeIt}, {&others, deleteIt},
        {&we, makeIt}, {&we, closeIt}, {&others, isThere}, {&others, deleteIt},
        {&we, makeIt}, {&we, {erase, "none", "2"}}, {&others, isThere}, {&we, closeIt},
        // So does the call behind one that was refused before the registry looked at the key.
        {&we, makeToRead}, {&we, closeIt}, {&others, deleteIt}, {&we, makeToRead}, {&we, {set, "v", "5", 1}},
        {&we, closeIt}, {&others, isThere},
        // What was only opened is missing. The next opening asks again.
        {&others, deleteIt}, {&we, openIt}, {&we, {query, "v", "2", 1}}, {&we, {query, "v", "1018", 1}},
        {&others, {make, "kept"}}, {&we, closeIt}, {&we, openIt}, {&we, write},
        // A key that was seen since it was opened stays deleted.
        {&others, deleteIt}, {&we, {set, "v", "1018", 1}}, {&others, isMissing}, {&we, closeIt},
        // One handle for one owner.
        {&we, makeIt}, {&we, {make, path, "0", 8, 63, 2}}, {&we, closeIt}, {&we, {set, "v", "0", 2}},
    };
    // clang-format on
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(steps[i].first->answer(steps[i].second), steps[i].second.answer) << "step " << i;
    }
    we.answer({close, "", "0", 2});
    EXPECT_EQ(others.answer(deleteIt), "0");
    EXPECT_EQ(we.answer(makeIt), "0");
    kept.release();  // the end of an event makes a deleted key anew as well
    EXPECT_EQ(others.answer(deleteIt), "0");
    EXPECT_EQ(we.answer(closeIt), "0");
    EXPECT_EQ(we.answer({open, path, "", 8}), "2");
}

void expectSameSettings(unsigned seed, int calls, Registry& registry) {
    KeptKeys kept(registry);
    cRegistryFunctions ours(kept), direct(registry);
    std::mt19937 random(seed);
    const auto oneOf = [&](const std::vector<std::string>& texts) { return texts[random() % texts.size()]; };
    for (int i = 0; i < calls && !testing::Test::HasFailure(); ++i) {
        const auto what = random() % 6;
        const std::string section = oneOf({"a", "A\\b", "a\\b\\c", "d"}), name = oneOf({"", "n", "N", "m\xE9"});
        const auto answer = [&](cRegistryFunctions& settings, const char* top) -> std::string {
            SettingsTable table;
            std::string rows;
            switch (what) {
                case 0: settings.DeleteSetting(top, section, ""); break;
                case 1: settings.DeleteSetting(top, section, name); break;
                case 2: return settings.GetSetting(top, section, name, "none");
                case 3:
                    rows = std::to_string(
                        static_cast<int>(ignoring([&] { table = settings.GetAllSettings(top, section); })));
                    for (int row = 0; table.isTable() && row < table.rowCount(); ++row) {
                        rows += ' ' + table.name(row) + '=' + table.text(row);
                    }
                    return rows;
                default: settings.SaveSetting(top, section, name, "%VRIX_A% " + std::to_string(i));
            }
            return {};
        };
        EXPECT_EQ(answer(random() % 3 == 0 ? direct : ours, "Vrix.T"), answer(direct, "Vrix.U")) << "call " << i;
        if (random() % 20 == 0) kept.release();
    }
    kept.release();
    Caller caller(registry);
    EXPECT_EQ(caller.answer({Do::make, "Software\\Vrix.U", "0", 8, 63, 1}), "0");
    EXPECT_EQ(caller.answer({Do::tree}), caller.answer({Do::tree, "", "", 1}));
}

}  // namespace vrix
