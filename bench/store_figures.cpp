#include <memory>

#include "pages/finish/new_product.h"
#include "pages/smartfields/smart_field_module.h"
#include "pages/wizard/product_options.h"
#include "product.h"
#include "store/cregistry_functions.h"

namespace vrix::bench {

namespace {

constexpr const char* section = "Toolkit\\Bench\\Options";
constexpr const char* keyPath = "Software\\Vrix\\Toolkit\\Bench\\Options";

Work repeated(const Work& call) {
    return [call] {
        for (int n = 0; n < 1'000; ++n) call();
    };
}

}  // namespace

// One call of the store against the calls of the platform that it makes. As single calls each is an event of its own.
void measureStore(const Scale& scale) {
    const auto store = makeStore();
    cRegistryFunctions settings(*store);
    const std::string name = "CoverPage1Name";
    const std::string data = "C:\\Courses\\Manual\\cover page.doc";
    const Side bareSave{repeated([&] { BareKey(*store, keyPath, BareKey::For::writing).set(name, data); })};
    const Side bareGet{repeated([&] { BareKey(*store, keyPath, BareKey::For::reading).get(name); })};
    const Work save = [&] { settings.SaveSetting(application, section, name, data); };
    const Work get = [&] { settings.GetSetting(application, section, name, ""); };
    const auto alone = [&](const Work& call) {
        return repeated([&store, call] {
            call();
            endEvent(*store);
        });
    };
    const auto tell = [&](const char* figure, const Work& ours, const Side& bare) {
        const auto times = inTurns(scale.rounds(31), {{ours}, bare});
        report(figure, ratio(times[0], times[1]), 1.1,
               text(median(times[0])) + " to " + text(median(times[1])) + " us a call");
    };
    tell("a SaveSetting, alone", alone(save), bareSave);
    tell("a SaveSetting, in a run", repeated(save), bareSave);
    tell("a GetSetting, alone", alone(get), bareGet);
    tell("a GetSetting, in a run", repeated(get), bareGet);
    removeTree(*store, "Software\\Vrix");
}

// All saves of Finish against a loop that opens each key once.
void measureSaves(const Scale& scale) {
    const auto store = makeStore();
    HeadlessWindows windows;
    Running running(*store, windows);
    const Toolkit& pages = running.pages;
    const Work bare = [&] {
        const std::string root = std::string("Software\\Vrix\\Toolkit\\") + productKey;
        constexpr auto writing = BareKey::For::writing;
        BareKey(*store, root, writing).set("Creation Date", running.clock.text);
        BareKey(*store, "Software\\Vrix\\Toolkit\\Products", writing).set(productKey, productKey);
        BareKey topics(*store, root + "\\Topics", writing);
        BareKey indexTable(*store, root + "\\Dependencies\\IndexTable", writing);
        BareKey matrix(*store, root + "\\Dependencies\\Matrix", writing);
        for (int row = 0; row < pages.create8.i; ++row) {
            const std::string& name = pages.create8.TopicNames.at(row);
            const std::string index = std::to_string(row);
            topics.set(name, pages.create8.TopicPaths.at(row));
            indexTable.set(name, index);
            matrix.set(index, pages.create9.Depends.at(row));
        }
        BareKey options(*store, root + "\\Options", writing);
        for (const Option& option : pages.options.all()) options.set(option.name, option.control->stored());
    };
    for (const int topics : scale.sizes({10, 100, 1'000, 10'000})) {
        fillProduct(running.pages, topics);
        const Work forget = [&] { removeTree(*store, "Software\\Vrix"); };
        const Work saves = [&] {
            saveNewProduct(pages, running.clock.text);
            endEvent(*store);
        };
        const auto times = inTurns(scale.rounds(topics > 1'000 ? 5 : 15), {{saves, forget}, {bare, forget}});
        report("b saves of Finish, " + std::to_string(topics) + " Topics", ratio(times[0], times[1]), 1.2,
               text(median(times[0])) + " to " + text(median(times[1])) + " ms");
    }
    removeTree(*store, "Software\\Vrix");
}

namespace {

void walkOnce(HeadlessUser& user, Running& running) {
    user.pressTask("CreateImg");
    while (user.form().name() != "Create18") {
        const std::string page = user.form().name();
        if (page == "Create2") user.type("ProductName", productKey);
        if (page == "Create3") user.type("CoverPage1", "c.doc").type("CoverPage1Name", "Cover");
        if (page == "Create8") {
            for (const char* topic : {"Intro", "Tools"})
                user.type("TopicName", topic).type("TopicPath", topic).press("CreateBtn");
        }
        user.press("NextBtn");
    }
    running.pages.create2.ProductKey.setText(productKey);
    user.press("NextBtn");
    user.pressTask("EditImg").press("NextBtn");
    user.press("DependenciesBtn")
        .press("NextBtn")
        .press("DependenciesBtn")
        .press("ExitBtn")
        .press("TopicsBtn")
        .press("NextBtn")
        .press("ExportSettingsBtn");
    user.type("SettingsPath", "bench_walk.kls").press("NextBtn").press("ExitBtn");
    user.pressTask("DeleteImg").press("NextBtn").press("NextBtn");
}

void tellGrowth(const char* what, const Resources& first, const Resources& last) {
    constexpr double spare = 64;  // what an allocator may keep
    report(std::string("f handles more after ") + what, static_cast<double>(last.handles - first.handles), 0);
    report(std::string("f kB more after ") + what, last.kilobytes - first.kilobytes, spare,
           "from " + text(first.kilobytes));
}

}  // namespace

// What a long use leaves behind: nothing.
void measureLasting(const Scale& scale) {
    const auto store = makeStore();
    cRegistryFunctions settings(*store);
    const auto calls = [&] {
        settings.SaveSetting(application, section, "name", "text");
        settings.GetSetting(application, section, "name", "");
        settings.GetAllSettings(application, section);
        settings.DeleteSetting(application, section, "name");
        settings.DeleteSetting(application, section, "");
        endEvent(*store);
    };
    calls();
    const Resources beforeCalls = resources();
    for (int n = 0; n < scale.rounds(20'000); ++n) calls();
    tellGrowth("100,000 store calls", beforeCalls, resources());

    HeadlessWindows windows;
    Running running(*store, windows);
    HeadlessUser user(windows);
    running.program.start();
    windows.passTime();
    const auto walk = [&] {
        walkOnce(user, running);
        windows.messages = {};
        windows.formLog = {};
        endEvent(*store);
    };
    walk();
    const Resources beforeWalks = resources();
    for (int n = 0; n < scale.rounds(1'000); ++n) walk();
    tellGrowth("1,000 walks", beforeWalks, resources());
    running.files.remove("bench_walk.kls");
    removeTree(*store, "Software\\Vrix");
}

}  // namespace vrix::bench
