#include "registry_suite.h"

#include <algorithm>
#include <random>

#include "common/code_page.h"
#include "common/utf8.h"
#include "stubs.h"

namespace vrix {

using namespace std::string_literals;

const std::map<std::string, std::string> testEnvironment = {{"vrix_a", "<A>"},
                                                            {"vrix b", "<B>"},
                                                            {"vrix_empty", ""},
                                                            {"vrix_loop", "%VRIX_A%"},
                                                            {"vrix_\u00e9", "\u20ac\u00e9"}};

Environment environmentLookup() {
    return [](const std::string& name) {
        const auto found = testEnvironment.find(foldedName(name));
        return found == testEnvironment.end() ? std::nullopt : std::optional(found->second);
    };
}

std::unique_ptr<JournalRegistry> openedJournal(const std::string& path, bool isFree) {
    static StubDisk free(true), held(false);
    return std::make_unique<JournalRegistry>(path, environmentLookup(), isFree ? free : held);
}

std::string listing(Registry& registry, RegistryKey top, bool sorted) {
    std::vector<std::string> items, names;
    std::vector<ValueData> values;
    if (registry.listValues(top, names, &values) != RegistryStatus::success) items.push_back("no values;");
    for (std::size_t i = 0; i < names.size(); ++i) {
        // A name that the code page cannot encode finds nothing, or another value.
        ValueData alone;
        const bool isFound = registry.queryValue(top, names[i], alone) == RegistryStatus::success;
        const bool isAlone = std::count(names.begin(), names.end(), names[i]) == 1;
        EXPECT_TRUE(!isFound || !isAlone || alone == values[i]) << names[i];
        items.push_back(names[i] + ':' + std::to_string(values[i].type) + '=' + values[i].bytes + ';');
    }
    if (registry.listKeys(top, names) != RegistryStatus::success) items.push_back("no keys;");
    for (const std::string& name : names) {
        RegistryKey opened = 0;
        static_cast<void>(registry.openKey(top, name, access::change, opened));
        items.push_back(name + '{' + (opened == 0 ? "" : listing(registry, opened, sorted)) + "};");
        registry.closeKey(opened);
    }
    if (sorted) std::sort(items.begin(), items.end());
    std::string all;
    for (const std::string& item : items) all += item;
    return all;
}

Caller::Caller(Registry& called, std::string ownKey, Registry* inUtf8)
    : registry(called), root("Software\\" + std::move(ownKey)), utf8(inUtf8) {
    EXPECT_EQ(registry.createKey(hive::localMachine, root, access::change, keys[0]), RegistryStatus::success);
}

Caller::~Caller() {
    for (const RegistryKey key : keys) registry.closeKey(key);
}

std::string Caller::answer(const Call& call) {
    const RegistryKey key = keys[call.key];
    RegistryKey opened = 0;
    ValueData value;
    std::vector<std::string> names;
    std::string rest;
    RegistryStatus status = RegistryStatus::success;
    switch (call.what) {
        case Do::open: status = registry.openKey(key, call.text, call.number, opened); break;
        case Do::make: status = registry.createKey(key, call.text, call.number, opened); break;
        case Do::remove: status = registry.deleteKey(key, call.text); break;
        case Do::erase: status = registry.deleteValue(key, call.text); break;
        case Do::query:
            status = registry.queryValue(key, call.text, value);
            rest = ' ' + std::to_string(value.type) + ' ' + value.bytes;
            break;
        case Do::set: status = registry.setValue(key, call.text, call.number, call.data); break;
        case Do::names: status = registry.listKeys(key, names); break;
        case Do::values: status = registry.listValues(key, names); break;
        case Do::tree: return listing(registry, key, true);
        case Do::expand: return registry.expandEnvironment(call.text);
        case Do::close: status = registry.closeKey(key); break;
        case Do::plant:
            status = utf8->createKey(hive::localMachine, root + '\\' + call.text, access::change, opened);
            EXPECT_EQ(utf8->setValue(opened, call.data, 1, call.data), RegistryStatus::success);
            utf8->closeKey(opened);
            return std::to_string(static_cast<int>(status));
    }
    if (call.what == Do::close && call.key < 6) keys[call.key] = 0;
    if (call.what <= Do::make) {
        EXPECT_EQ(opened != 0, status == RegistryStatus::success);
        registry.closeKey(std::exchange(keys[call.to], opened));
    }
    if (sorts) std::sort(names.begin(), names.end());
    for (const std::string& name : names) rest += ' ' + name;
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
         {values, "", isReal ? "0 a m z" : "0 m a z"}, {names, "", isReal ? "0 d k x" : "0 k x d"}},
        // Bytes by type. A text gets the terminator that it lacks.
        {{set, "v", "0", 0, 1, 0, "a\0\x80\xE9"s}, {query, "V", "0 1 a\0\x80\xE9\0"s}, {query, "w", "2"},
         {set, "v", "0", 0, 1, 0, "b\0"s}, {query, "v", "0 1 b\0"s}, {set, "v", "0", 0, 2, 0, "b"},
         {query, "v", "0 2 b\0"s}, {set, "v", "0", 0, 7, 0, "b"}, {query, "v", "0 7 b\0"s}, {set, "v", "0", 0, 1},
         {query, "v", "0 1 "}, {set, "v", "0", 0, 4, 0, "abc"}, {query, "v", "0 4 abc"},
         {set, "v", "0", 0, 1, 0, "\x81\x8D\x8F\x90\x9D"}, {query, "v", "0 1 \x81\x8D\x8F\x90\x9D\0"s},
         {set, "v", "0", 0, 3, 0, y30k}, {query, "v", "0 3 " + y30k}, {set, "v", "0", 0, 1, 0, y30k},
         {set, "\0x"s, "0", 0, ~0u, 0, "q"}, {query, "", "0 4294967295 q"}, {tree, "", ":4294967295=q;v:1=" + y30k + "\0;"s}},
        // Lengths of names.
        {{set, v16k}, {values, "", "0 " + v16k}, {erase, v16k}, {set, v16k + "v", "87"}, {erase, v16k + "v", "2"}},
        // A key with subkeys stays; values go with their key.
        {{make, "a\\b", "0", 0, 63, 1}, {set, "v", "0", 1}, {remove, "a", "5"}, {remove, "A\\b"}, {remove, "a"},
         {tree, "", ""}},
        // Handles of a deleted key; a key made again is another one.
        {{make, "k", "0", 0, 63, 1}, {open, "k", "0", 0, 1, 2}, {remove, "", "0", 1}, {make, "k", "0", 0, 63, 3},
         {open, "\\", "1018", 1}, {make, "x", "1018", 1}, {remove, "", "1018", 1}, {set, "v", "1018", 1},
         {erase, "v", "1018", 1}, {query, "v", "1018", 1}, {values, "", "1018", 1}, {names, "", "1018", 1},
         {set, "v", "5", 2}, {close, "", "0", 1}, {set, "v", "0", 3},
         {make, "Software\\Vrix.T\\k", "0", 8, 63, 4}, {remove, "k"}, {close, "", "0", 4},
         {open, "Software\\Vrix.T\\k", "2", 8}},
        // Handles of nothing, and of a key that was closed.
        {{open, "\\", "6", 7}, {make, "x", "6", 7}, {remove, "", "6", 7}, {set, "v", "6", 7}, {erase, "v", "6", 7},
         {query, "v", "6", 7}, {values, "", "6", 7}, {names, "", "6", 7}, {close, "", "6", 7},
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
                          {values, "", reads ? "0" : "5", 1}, {make, "n", "0", 1}, {remove, "n", "0", 1},
                          {names, "", rights / 8 % 2 != 0 ? "0 below" : "5", 1}});
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

void expectKeepsCharacters(const std::function<std::unique_ptr<Registry>()>& fresh) {
    using enum Do;
    const std::string half = "\xED\xA0\xBD", face = "\xF0\x9F\x98\x80", n85 = [] {
        std::string name;
        while (name.size() < 255) name += "\u5B89";
        return name;
    }();
    useLetterFolder([](char32_t letter) -> char32_t { return letter == 0x416 ? 0x436 : letter; });
    const auto registry = fresh();
    Caller caller(*registry);
    // clang-format off
    for (const Call& call : std::vector<Call>{
        {make, "\u0416\\\u5B89\u5168"}, {open, "\u0436\\\u5B89\u5168"}, {names, "", "0 \u0416"}, {open, "?", "2"},
        {make, n85 + n85 + n85, "0", 0, 63, 1}, {remove, n85 + n85 + n85}, {open, n85 + n85 + n85 + "nn", "87"},
        {set, "\u0416" + half, "0", 0, 1, 0, half + "\u5168" + face}, {query, "\u0436" + half, "0 1 " + half + "\u5168" + face + '\0'},
        {set, "\u0436" + half, "0", 0, 7, 0, "a\0\u0416\0\0"s}, {values, "", "0 \u0416" + half},
        {query, "\u0416" + half, "0 7 a\0\u0416\0\0"s}, {erase, "\u0436" + half},
        {make, half, "0", 0, 63, 1}, {set, half, "0", 1, 3, 0, half}, {remove, "\u0416\\\u5B89\u5168"}, {remove, "\u0436"},
        {tree, "", half + "{" + half + ":3=" + half + ";};"}, {expand, "%VRIX_A%\u5168", "<A>\u5168"},
    }) EXPECT_EQ(caller.answer(call), call.answer) << call.text;
    // clang-format on
    useLetterFolder(nullptr);
}

void expectSameAnswers(unsigned seed, int calls, unsigned codePage, Caller& first, Caller& second) {
    using enum Do;
    // Complete characters only, as the pages ensure: a lead byte at the end would absorb the terminator, or become a
    // zero character.
    const std::string own = codePage == 932     ? "\x95\x5C\xB1\x83\x41"
                            : codePage == 65001 ? "\u8868\u00e9\u0416"
                                                : "\xE9x\xC9\x80\x81\xFF";
    const std::vector<std::string> paths = {"a", "A\\", "b\\",   "\\\\bB",
                                            own, "c d", "a\0b"s, '\\' + std::string(255, 'k') + '\\'};
    const std::vector<std::string> texts = {"%", "%", "VRIX_A", "vrix b", "%VRIX_EMPTY%", "%vrix_loop%", own, "\0"s};
    const std::vector<std::string> foreign = {"\u5B89\u5168", "\u0416",       "\u2011",
                                              "\xED\xA0\xBD", "\u00fc\u20ac", "\u0101"};
    std::mt19937 random(seed);
    const auto below = [&](std::size_t end) { return static_cast<unsigned>(random() % end); };
    for (int i = 0; i < calls && !testing::Test::HasFailure(); ++i) {
        Call call{static_cast<Do>(below(12)), "", "", below(6)};
        const auto& parts = call.what == expand ? texts : call.what == plant ? foreign : paths;
        for (unsigned count = below(4); count > 0; --count) call.text += parts[below(parts.size())];
        call.number = call.what <= make ? std::vector{63u, 63u, 1u, 8u, 3u, 2u}[below(6)] : below(9);
        call.to = 1 + below(5);
        call.data = call.what == plant
                        ? foreign[below(foreign.size())]
                        : ("ab" + own + "\0%A%\0\0q"s).substr(0, below(2) == 0 ? below(3) : 2 + own.size() + below(7));
        const bool ends = call.what == close || (call.what == remove && call.text.c_str()[0] == '\0');
        const bool differs = call.what == values && first.sorts;  // the real one asks for no right first
        if ((call.key == 0 && ends) || differs || (call.what == plant && first.utf8 == nullptr)) continue;
        const std::string left = first.answer(call);
        EXPECT_EQ(left, second.answer(call))
            << "call " << i << " is " << static_cast<int>(call.what) << ' ' << call.text;
    }
    EXPECT_EQ(first.answer({tree}), second.answer({tree}));
}

}  // namespace vrix
