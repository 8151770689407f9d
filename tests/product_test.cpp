#include <tuple>

#include "product/json/product_json.h"
#include "product_dice.h"

namespace vrix {
namespace {

TEST(Product, RoundTripsThroughStoreAndJson) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Product product = Dice(seed).product();
        ASSERT_EQ(applied(product), listing(product)) << seed;
        const std::string json = toJson(product);
        const Product back = fromJson(json);
        ASSERT_TRUE(isWhole(json)) << seed;
        ASSERT_EQ(listing(back), listing(product)) << seed << json;
        ASSERT_EQ(toJson(back), json);
    }
}

TEST(Product, ApplyMakesTheStoreWhatTheProductSays) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Dice dice(seed);
        Product a = dice.product();
        Product b = dice.product();
        b.id.tree = a.id.tree;
        EmbeddedRegistry registry;
        const ProductStore store(registry);
        apply(registry, b);
        const bool isSame = compare(a, b).empty();
        const Plan plan = planApply(store, a, Unnamed::removed);
        const bool onlyDates = std::all_of(plan.begin(), plan.end(), [](const StoreChange& change) {
            return change.kind == StoreChange::Kind::setValue && isCreationDate(change.value.name);
        });
        ASSERT_EQ(onlyDates, isSame) << seed;
        perform(registry, plan);
        ASSERT_EQ(listing(compare(a, store.read(a.id))), "") << seed << listing(b);
        ASSERT_EQ(planApply(store, a, Unnamed::removed).size(), 0u) << seed;
        ASSERT_EQ(store.list().size(), 1u);

        apply(registry, b, Unnamed::kept);
        for (const Difference& d : compare(store.read(b.id), b)) {
            ASSERT_TRUE(!d.right || d.what.starts_with("order")) << seed << listing({d});
        }
        perform(registry, planRemoval(store, a.id));
        ASSERT_TRUE(store.list().empty() && store.leftovers().empty()) << seed;
    }
}

TEST(Product, AnInterruptedApplyIsRepairedByTheNext) {
    Dice dice(7);
    StandardFiles files;
    for (int round = 0; round < 3; ++round) {
        const Product a = dice.product();
        Product b = dice.product();
        b.id.tree = a.id.tree;
        for (int refused = -1, calls = 0; refused < calls; ++refused) {
            EmbeddedRegistry registry;
            FailingMachine machine(registry, files);
            const ProductStore store(machine);
            apply(registry, b);
            machine.counts = true;
            machine.first = refused;
            machine.last = refused < 0 || dice.once(2) ? refused : 10'000;
            try {
                apply(machine, a);
            } catch (const Refusal&) {
                ASSERT_GE(refused, 0);
            }
            if (refused < 0) calls = static_cast<int>(machine.calls.size());
            machine.counts = false;
            ASSERT_EQ(machine.openKeys(), 0u);
            apply(machine, a);
            ASSERT_EQ(listing(compare(a, store.read(a.id))), "") << refused;
            ASSERT_EQ(store.list().size(), 1u);
        }
    }
}

// ---- JSON ----

std::string jsonRefusal(const std::string& json) {
    try {
        return "read: " + listing(fromJson(json));
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

TEST(ProductJson, ReadsWhatAPersonWouldWrite) {
    const std::string json = R"({"name": "Größe", "key": "K", "created": "today",
        "options": {"AllowNoTOC": true, "UserDefined1Pos": 4, "TOCPath": "C:\\a", "CoverPage1": "%A%\\b"},
        "topics": [{"name": "A", "file": "a", "dependsOn": ["B", "C", 9]}, {"name": "B", "file": "b", "index": 7}],
        "addedTopics": [{"name": "C", "file": {"type": "REG_DWORD", "bytes": "01000000"}, "dependsOn": []}],
        "smartFields": ["<!x!>"], "other": [{"key": ["Options"], 
            "values": [{"name": "New", "value": ""}, "UserDefined1Pos", "TOCPath", "CoverPage1"]}]})";
    EXPECT_EQ(jsonRefusal(json),
              "read: Größe,K\n[]\nCreation Date=1:today~\n[Topics]\nA=1:a~\nB=1:b~\n[Dependencies]\n"
              "[Dependencies\\IndexTable]\nA=1:0~\nB=1:7~\nC=1:2~\n[Dependencies\\Matrix]\n0=1:7 2 9~\n7=1:~\n2=1:~\n"
              "[Options]\nAllowNoTOC=1:1~\nNew=1:~\nUserDefined1Pos=1:4~\nTOCPath=1:C:\\a~\nCoverPage1=2:%A%\\b~\n"
              "[SmartFields]\nSmartField1=1:<!x!>~\n[Toolkit]\n[Toolkit\\Topics]\nC=4:\1~~~\n");
}

TEST(ProductJson, IsRefusedWithItsPlace) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"{\n\"key\":}", "line 2: this is no JSON"},
        {"[]", "an object should stand here"},
        {"{}", "\"key\" is missing"},
        {R"({"key": "K", "key": "K"})", "the member \"key\" stands twice"},
        {R"({"key": "K", "keys": 1})", "/keys: this member is not known"},
        {R"({"key": "Products"})", "/key: \"Products\" is not the key"},
        {R"({"key": "Toolkit\\K", "tree": "installed"})", "/key: \"Toolkit\" is not"},
        {R"({"key": "\\"})", "/key: a Product needs a key"},
        {R"({"key": "K", "tree": "other"})", "/tree: "},
        {R"({"key": "K", "options": {"AllowNoTOCC": true}})", "/options/AllowNoTOCC: there is no such option"},
        {R"({"key": "K", "options": {"AllowNoTOC": 1}})", "/options/AllowNoTOC: this option has another type"},
        {R"({"key": "K", "options": {"UserDefined1Pos": 1.5}})", "/options/UserDefined1Pos: "},
        {R"({"key": "K", "options": {"TOCPath": "a\u0000"}})", "/options/TOCPath: there is a zero character"},
        {R"({"key": "K", "topics": [{"name": "A"}]})", "/topics/0: \"file\" is missing"},
        {R"({"key": "K", "topics": [{"name": "A", "file": "a"}, {"name": "A", "file": "a"}]})", "/topics/1: two"},
        {R"({"key": "K", "topics": [{"name": "A", "file": "a", "dependsOn": ["B"]}]})", "/topics/0/dependsOn: there"},
        {R"({"key": "K", "smartFields": [{"type": "REG_WORD", "bytes": ""}]})", "/smartFields/0/type: "},
        {R"({"key": "K", "smartFields": [{"type": 3, "bytes": "0"}]})", "/smartFields/0/bytes: "},
        {R"({"key": "K", "smartFields": [{"type": 1, "bytes": "00"}]})", "/smartFields/0: \"utf16\" is missing"},
        {R"({"key": "K", "smartFields": [{"type": 1, "utf16": "00", "text": ""}]})", "/smartFields/0: beside"},
        {R"({"key": "K", "smartFields": [{"type": 1, "utf16": "004100"}]})",
         "/smartFields/0/utf16: these are no units"},
        {R"({"key": {"utf16": "00410000"}})", "/key: there is a zero character"},
        {"{\"key\": \"" + half + "\"}", "line 1: this is no JSON"},
        {"{\"key\":\n1e400}", "behind \"key\": a number is out of range"},
        {"{\"key\":" + std::string(100, '['), "it has more than 100 levels"},
        {R"({"key": "K", "other": [{"key": ["A\\B"]}]})", "/other/0/key: this is no name"},
        {R"({"key": "K", "other": [{"key": [], "values": ["x"]}]})", "/other/0/values/0: no other member"},
        {R"({"key": "K", "created": "", "other": [{"key": [], "values": ["Creation Date", "Creation Date"]}]})",
         "/other/0/values/1: no other member"}};
    for (const auto& [json, told] : cases) EXPECT_EQ(jsonRefusal(json).substr(0, told.size()), told) << json;
}

TEST(ProductJson, HasOneCanonicalFormForEachValue) {
    const std::vector<std::pair<StoredValue, std::string>> cases{
        {{"", 1, {"A\0", 2}}, R"("A")"},
        {{"", 2, {"A\0", 2}}, R"({"type":"REG_EXPAND_SZ","text":"A"})"},
        {{"", 7, {"a\0b\0\0", 5}}, R"({"type":"REG_MULTI_SZ","text":"a\u0000b\u0000"})"},
        {{"", 1, "😀" + half + '\0'}, R"({"type":"REG_SZ","utf16":"D83DDE00D8000000"})"},
        {{"", 1, ""}, R"({"type":"REG_SZ","utf16":""})"},
        {{"", 4, ""}, R"({"type":"REG_DWORD","bytes":""})"},
        {{"", 300, "\x81"}, R"({"type":300,"bytes":"81"})"}};
    for (const auto& [value, told] : cases) {
        Product product{{Tree::toolkit, half, "K"}, {{part::root, {}}, {part::smartFields, {value}}}};
        product.keys[1].values[0].name = "SmartField1";
        const std::string json = jsonOf(product).dump();
        EXPECT_EQ(json, R"({"name":{"utf16":"D800"},"key":"K","tree":"toolkit","smartFields":[)" + told + "]}");
        for (const char* mark : {"\xFF\xFE", "\xFE\xFF"}) {
            std::string wide = mark;
            for (const char16_t unit : toUtf16(json)) {
                const std::string bytes{static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
                wide += mark[0] == '\xFF' ? bytes : std::string(bytes.rbegin(), bytes.rend());
            }
            EXPECT_EQ(jsonRefusal(wide), "read: " + listing(product)) << told;
        }
        EXPECT_EQ(jsonRefusal("\xEF\xBB\xBF" + json), "read: " + listing(product)) << told;
    }
}

TEST(Encoding, ConvertsExactlyOrNotAtAll) {
    const std::vector<std::tuple<unsigned, std::string, std::string>> pairs{
        {1252, "\x80\xE4", "€ä"}, {932, "\x95\x5C\xB1", "表ｱ"}, {936, "\xC4\xE3", "你"},      {949, "\xB0\xA1", "가"},
        {950, "\xA7\x41", "你"},  {1251, "\xC6", "Ж"},          {65001, "\xE4\xBD\xA0", "你"}};
    for (const auto& [codePage, bytes, utf8] : pairs) {
        const auto encoding = testEncoding(codePage);
        EXPECT_EQ(encoding->toUtf8(bytes), utf8) << codePage;
        EXPECT_EQ(encoding->fromUtf8(utf8), bytes) << codePage;
        EXPECT_EQ(encoding->fromUtf8("\xFF"), std::nullopt) << codePage;
        EXPECT_EQ(encoding->fromUtf8("a😀").has_value(), codePage == 65001) << codePage;
        const bool isHalf = codePage != 1252 && codePage != 1251;
        EXPECT_EQ(encoding->toUtf8(bytes.substr(0, 1)).has_value(), !isHalf) << codePage;
    }
    EXPECT_EQ(western->fromUtf8("Ａ"), std::nullopt);  // no best fit
    EXPECT_EQ(testEncoding(1), nullptr);
}

}  // namespace
}  // namespace vrix
