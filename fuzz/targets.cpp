#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <fstream>
#include <map>

#include "common/code_page.h"
#include "common/utf8.h"
#include "forms/event.h"
#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_registry.h"
#include "makers/posix/iconv_encoding.h"
#include "product/check.h"
#include "product/compare.h"
#include "product/json/product_json.h"
#include "product/plan.h"
#include "product/settings_text.h"
#include "store/settings_file.h"
#include "stubs.h"
#include "walk.h"

namespace vrix {
namespace {

using Input = FuzzedDataProvider;

// Asserts an invariant. A failed one is a crash, and the fuzzer keeps the input.
void promise(bool kept) { kept ? void() : std::abort(); }

// A store in which other programs may have left values of any type and size. It may refuse every change.
std::shared_ptr<StubRegistry> fuzzedStore() {
    return std::make_shared<StubRegistry>([](const std::string& name) { return std::optional(name + name); });
}

// A path in the walk's own folder, from any text.
std::string inside(const Walk& walk, const std::string& text) {
    if (text.find_first_not_of(" \t") == std::string::npos) return text;
    return walk.path("") + (text.find("..") == std::string::npos ? text : "out.kls");
}

// Failures end the program by their number, and no key stays open.
void promiseSound(Walk& walk) {
    for (const ShownMessage& message : walk.windows.messages) promise(!message.text.starts_with("Run-time error:"));
    RegistryKey key = 0;
    promise(walk.registry.openKey(hive::localMachine, "Software", access::change, key) == RegistryStatus::success);
    while (--key > 0) promise(walk.registry.closeKey(key) == RegistryStatus::invalidHandle);
}

// Only these may change the store: the Finish of a new Product, a deletion, and Next while a page is in edit mode.
bool mayWrite(Walk& walk, const std::string& control) {
    const std::string form = walk.front();
    return control == "NextBtn" &&
           (form == "Create18" || form == "Delete2" || walk.text(form, "Label1") == "Edit A Product");
}

// One page takes input, and Document Control beside it where its Exit left that open. The tables have their stated
// lengths.
void promiseInvariants(Walk& walk) {
    int live = 0;
    for (const Form* form : walk.windows.visibleForms()) live += form->enabled();
    promise(live == 1 || (walk.pages.create17.visible() && live == 2));
    promise(static_cast<int>(walk.pages.create8.TopicNames.count()) >= walk.pages.create8.i);
    const auto& numbers = walk.pages.topicOrderModule.OrderTable.numbers;
    for (std::size_t n = 0; n < numbers.size(); ++n) promise(numbers[n] == static_cast<int>(n));
    const int spare = static_cast<int>(walk.pages.smartFieldModule.SmartFieldList.count());
    promise(!walk.pages.create19.loaded() || spare >= walk.pages.create19.SmartFieldCount);
}

// Performs the input's actions at the front window, until the input or the program ends.
void work(Walk& walk, Input& input) {
    while (input.remaining_bytes() > 0 && !walk.windows.ended) {
        const std::vector<Control*> controls = walk.user.form().controls();
        Control& target = *controls[input.ConsumeIntegralInRange<std::size_t>(0, controls.size() - 1)];
        const int row = input.ConsumeIntegral<std::uint8_t>() / 2;
        const bool yes = row < 64;
        if (!target.visible() || !target.enabled()) continue;
        const std::string& name = target.name();
        const std::string text = is<TextBox>(target) ? wholeCharacters(input.ConsumeRandomLengthString()) : "";
        walk.windows.answers = {yes ? Answer::ok : Answer::cancel};
        const bool writes = mayWrite(walk, name);
        const std::string before = writes ? "" : walk.tree();
        if (is<Frame>(target)) walk.user.close();
        if (is<TaskPicture>(target)) walk.user.pressTask(name, yes);
        if (is<ImageButton>(target)) walk.user.press(name);
        if (is<CheckBox>(target)) walk.user.check(name, yes);
        if (is<OptionButton>(target)) walk.user.choose(name);
        if (is<TextBox>(target)) walk.user.type(name, name == "SettingsPath" ? inside(walk, text) : text);
        const auto* box = dynamic_cast<ComboBox*>(&target);
        if (box != nullptr && box->count() > 0) walk.user.choose(name, row % box->count());
        const auto* list = dynamic_cast<MarkList*>(&target);
        if (list != nullptr && list->count() > 0) walk.user.mark(name, row % list->count(), yes);
        promise(writes || walk.tree() == before);
        if (!walk.windows.ended) promiseInvariants(walk);
    }
    promiseSound(walk);
}

// Selects the Product "P" of one of the two trees, with any values in it, opens a group of its hub, and works from
// there; without a group from the main screen, and with any values in the list of Products.
void edit(Input& input, const std::string& group) {
    const auto store = fuzzedStore();
    Walk walk(store);
    walk.start().put("Products", "P", "P");
    const bool isDeveloper = input.ConsumeBool();
    if (isDeveloper || input.ConsumeBool()) walk.put("Toolkit\\Products", "P", "P");
    const std::string tree = isDeveloper ? "Software\\Vrix\\Toolkit\\" : "Software\\Vrix\\";
    for (int values = input.ConsumeIntegralInRange(0, 40); values > 0; --values) {
        const std::string section =
            input.PickValueInArray({"P", "P\\Options", "P\\Topics", "P\\SmartFields", "P\\Toolkit\\Topics",
                                    "P\\Dependencies\\IndexTable", "P\\Dependencies\\Matrix"});
        const std::string key = tree + (group.empty() && input.ConsumeBool() ? "Products" : section);
        const auto type = input.ConsumeIntegralInRange<std::uint32_t>(0, 11);
        const std::string name = input.ConsumeRandomLengthString();
        store->replay({Change::Kind::makeKey, key});
        store->replay({Change::Kind::setValue, key, name, type, input.ConsumeRandomLengthString()});
    }
    store->answer = input.ConsumeBool() ? RegistryStatus::accessDenied : RegistryStatus::success;
    if (!group.empty()) walk.editProduct(isDeveloper ? 1 : 0).user.press(group);
    work(walk, input);
}

// Lines of the imported file become Topics up to the first malformed one; then the actions go on.
void importFile(Input& input) {
    Walk walk;
    walk.createTo("Create8");
    const std::string path = walk.path("Docs\\list.txt");
    std::ofstream(path, std::ios::binary) << input.ConsumeRandomLengthString();
    runEvent(walk.windows, [&] { walk.pages.create8.ImportFile(path); });
    work(walk, input);
}

// A journal of any bytes, or of valid records of any bytes, is refused and unchanged; or it opens, and after one more
// write it holds the same when it is opened again.
void journal(Input& input) {
    StubDisk disk;
    const std::string path = (std::filesystem::temp_directory_path() / "vrix_fuzz.journal").string();
    std::filesystem::remove(path);
    JournalFile file(path, disk, [](const std::string&) { return true; });
    while (input.ConsumeBool()) promise(file.append(input.ConsumeRandomLengthString()));
    std::ofstream(path, input.ConsumeBool() ? std::ios::app : std::ios::trunc) << input.ConsumeRemainingBytesAsString();
    std::filesystem::last_write_time(path, {});
    const auto start = [&] { return std::make_shared<JournalRegistry>(path, nullptr, disk); };
    try {
        Walk walk(start());
        walk.put("Fuzzed", "name", "data");
        promise(Walk(start()).tree() == walk.tree());
    } catch (const Refusal&) {
        promise(std::filesystem::last_write_time(path) == std::filesystem::file_time_type());
    }
}

// Unescapes the data of an entry as a registry editor does: a backslash gives the character behind it.
std::string merged(const std::string& data) {
    std::string text;
    for (std::size_t at = 0, size = 0; at < data.size(); at += size) {
        if (data[at] == '\\') ++at;
        promise(at < data.size());
        size = characterSize(data, at);
        text.append(data, at, size);
    }
    return text;
}

// A new Product of any texts stands as typed in the store and in the file, if the store takes changes, and the path of
// the file is one.
void finish(Input& input) {
    const auto text = [&] {
        return std::string(input.ConsumeBool() ? 17'000 : 0, 'x') + wholeCharacters(input.ConsumeRandomLengthString());
    };
    const auto store = fuzzedStore();
    store->answer = input.ConsumeBool() ? RegistryStatus::accessDenied : RegistryStatus::success;
    Walk walk(store);
    walk.createTo("Create18");
    const Toolkit& pages = walk.pages;
    std::filesystem::create_directory(walk.path("folder"));
    const std::string path = inside(walk, wholeCharacters(input.ConsumeRandomLengthString()));
    const std::string key = text();
    walk.user.type("SettingsPath", path);
    pages.create2.ProductName.setText(text());
    pages.create2.ProductKey.setText(key);
    pages.create8.TopicNames.at(0) = text();
    for (const Option& option : pages.options.all()) {
        if (is<TextBox>(*option.control)) option.control->restore(text());
    }
    walk.user.press("NextBtn");
    promiseSound(walk);
    promise(!walk.windows.ended || walk.message().find(": Run-time error '7") != std::string::npos);
    const bool refused = store->answer != RegistryStatus::success;
    promise(!refused || walk.tree().empty());
    const std::string file = walk.file(path);
    for (const auto& [name, control, isPath] : pages.options.all()) {
        const std::string data = control->stored();
        const std::string entry = "\r\n\"" + name + "\"=\"" + (isPath ? escapedPath(data) : data) + "\"\r\n";
        promise(walk.windows.ended || path.empty() || file.find(entry) != std::string::npos);
        promise(refused || key.size() > 200 || (key + data).find_first_of({"\0%", 2}) != std::string::npos ||
                !systemEncoding().toUtf8(key) || !systemEncoding().toUtf8(data) ||
                pages.settings.GetSetting(application, "Toolkit\\" + key + "\\Options", name, "") == data);
        auto network = findCharacter(data, '\\');
        while (network < data.size() && !data.substr(network).starts_with("\\\\"))
            network = findCharacter(data, '\\', network + 1);
        const std::string kept = data.substr(network == std::string::npos ? 0 : network);
        promise(merged(escapedPath(data)) == (kept == "\\\\" ? "" : kept));
    }
}

// A text of any bytes is refused, or it is one Product: writing it to a store and reading it back gives the same, and
// so does JSON, and nothing else in the store changes.
template <class Read>
void product(const Read& read) {
    const auto encoding = iconvEncoding(1252);
    EmbeddedRegistry registry;
    const ProductStore store(registry);
    try {
        const Product found = read(*encoding);
        const std::string json = toJson(found);
        promise(isWhole(json) && toJson(fromJson(json)) == json);
        const Plan plan = planApply(store, found, Unnamed::removed);
        for (const StoreChange& change : plan) {
            promise(isWithin(change.path, rootPath(found.id)) || samePath(change.path, listPath(found.id.tree)));
        }
        perform(registry, plan);
        promise(compare(found, store.read(found.id)).empty());
        promise(planApply(store, found, Unnamed::removed).empty());
        checkProduct(found);
        settingsText(registry, found.id);
    } catch (const Refusal&) {
    }
}

const std::map<std::string, std::function<void(Input&)>> targets{
    {"values", [](Input& input) { edit(input, ""); }},
    {"dependencies", [](Input& input) { edit(input, "DependenciesBtn"); }},
    {"topics", [](Input& input) { edit(input, input.ConsumeBool() ? "TopicOrderBtn" : "TopicsBtn"); }},
    {"import", importFile},
    {"journal", journal},
    {"finish", finish},
    {"settings",
     [](Input& input) {
         const std::string file = input.ConsumeRemainingBytesAsString();
         product([&](const Encoding& encoding) { return readSettings(file, encoding); });
     }},
    {"json", [](Input& input) {
         const std::string text = input.ConsumeRemainingBytesAsString();
         product([&](const Encoding&) { return fromJson(text); });
     }}};

}  // namespace
}  // namespace vrix

// The variable VRIX_TARGET says what is fuzzed. The size of an input says on which code page.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    struct Page {
        explicit Page(unsigned number_) : number(number_), encoding(vrix::iconvEncoding(number_)) {}
        unsigned number;
        std::unique_ptr<vrix::Encoding> encoding;
    };
    static const Page pages[] = {Page(1252), Page(932), Page(65001)};
    const Page& page = pages[size % 3];
    vrix::useCodePage(page.number, *page.encoding);
    vrix::Input input(data, size);
    vrix::targets.at(std::getenv("VRIX_TARGET"))(input);
    return 0;
}
