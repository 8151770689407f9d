#include <memory>

#include "pages/edit/edit2.h"
#include "pages/finish/new_product.h"
#include "pages/smartfields/smart_field_module.h"
#include "product.h"

namespace vrix::bench {

namespace {

// One thing that a user does on a page, with what makes it possible before and undoes it behind. Only it is timed.
struct Action {
    std::string name;
    Work run;
    Work before = [] {};
    Work after = [] {};
    bool touchesStore = false;
    double limit = 16;  // milliseconds
};

// From the release of the button until the other page is painted.
std::vector<Action> onWizard(Toolkit& pages) {
    const Work press = [&pages] { pages.create5.NextBtn.mouseDown(); };
    const Work release = [&pages] { pages.create5.NextBtn.mouseUp(); };
    return {{"page change", release, press, [&pages] { pages.create6.BackBtn.action(); }, false, 8}};
}

std::vector<Action> onTopics(Toolkit& pages) {
    Create8& page = pages.create8;
    const auto type = [&page](const std::string& name) {
        page.TopicName.setText(name);
        page.TopicPath.setText(name);
    };
    const Work middle = [&page] { page.Topics.userChooses(page.Topics.count() / 2); };
    const Work last = [&page] { page.Topics.userChooses(page.Topics.count() - 1); };
    const Work remove = [&page] { page.DeleteBtn.action(); };
    const Work add = [&page, type] {
        type("More");
        page.CreateBtn.action();
    };
    const Work edit = [middle, type] {
        middle();
        type("Other");
    };
    return {{"Topics: add", add, [] {}, remove},
            {"Topics: delete", remove, middle, add},
            {"Topics: rename", [&page] { page.UpdateBtn.action(); }, edit},
            {"Topics: select", middle, last},
            {"Topics: type", [type] { type("Another"); }, last},
            {"Order: open", [&page] { page.NextBtn.action(); }, [] {}, [&pages] { pages.create20.BackBtn.action(); }}};
}

std::vector<Action> onOrder(Toolkit& pages) {
    Create20& page = pages.create20;
    const Work middle = [&pages, &page] {
        pages.topicOrderModule.showOrderPage(pages.topicOrderModule.OrderPageCount / 2);
        page.OrderOption[2].choose();
    };
    return {{"Order: choose", [&page] { page.OrderOption[3].choose(); }, middle},
            {"Order: move up", [&page] { page.MoveUpBtn.action(); }, middle},
            {"Order: move down", [&page] { page.MoveDownBtn.action(); }, middle},
            {"Order: next page", [&page] { page.PageUpBtn.action(); }, middle},
            {"Order: previous page", [&page] { page.PageDownBtn.action(); }, middle},
            {"Dependencies: open", [&page] { page.NextBtn.action(); }, [] {},
             [&pages] { pages.create9.BackBtn.action(); }}};
}

std::vector<Action> onDependencies(Toolkit& pages) {
    Create9& page = pages.create9;
    const auto choose = [&page](int row) -> Work { return [&page, row] { page.Topics.userChooses(row); }; };
    const auto mark = [&page](bool marked) -> Work {
        return [&page, marked] { page.DependsList.userMarks(page.DependsList.count() / 2, marked); };
    };
    const Work dependOnAll = [&page, choose] {
        choose(1)();
        std::string row = "1";
        for (int r = 2; r < page.Topics.count(); ++r) row += ' ' + std::to_string(r);
        page.Depends.at(0) = row;
    };
    return {{"Dependencies: change of Topic", choose(3), choose(2)},
            {"Dependencies: mark", mark(true), mark(false)},
            {"Dependencies: unmark", mark(false), mark(true)},
            {"Dependencies: change to a Topic of all", choose(0), dependOnAll},
            {"Dependencies: mark among all", mark(true), mark(false)}};
}

std::vector<Action> onSmartFields(Toolkit& pages) {
    Create19& page = pages.create19;
    const Work middle = [&page] { page.SmartFields.userChooses(page.SmartFields.count() / 2); };
    const Work remove = [&page] { page.DeleteBtn.action(); };
    const Work add = [&page] {
        page.SmartFieldText.setText("More");
        page.CreateBtn.action();
    };
    return {{"SmartFields: add", add, [] {}, remove},
            {"SmartFields: delete", remove, middle, add},
            {"SmartFields: rename", [&page] { page.UpdateBtn.action(); }, middle},
            {"SmartFields: select", middle, [&page] { page.SmartFields.userChooses(0); }}};
}

// Entering a page of a stored Product, and its Next, which saves.
std::vector<Action> onHub(Toolkit& pages) {
    std::vector<Action> actions;
    const auto group = [&](const std::string& name, ImageButton& open, Page& page) {
        const Work enter = [&open] { open.action(); };
        const Work exit = [&page] { page.ExitBtn.action(); };
        const Work next = [&page] { page.NextBtn.action(); };
        actions.push_back({"stored " + name + ": open", enter, [] {}, exit, true});
        actions.push_back({"stored " + name + ": Finish", next, enter, [] {}, true});
    };
    group("dependencies", pages.edit2.DependenciesBtn, pages.create9);
    group("SmartFields", pages.edit2.SmartFieldsBtn, pages.create19);
    group("order", pages.edit2.TopicOrderBtn, pages.create20);
    // Last: it leaves an unnamed dependency row, which a platform that sorts values lists in front of the others.
    group("Topics", pages.edit2.TopicsBtn, pages.create8);
    return actions;
}

void fillSmartFields(Toolkit& pages, int count) {
    pages.smartFieldModule.SmartFieldList.sizeTo(count);
    for (int row = 0; row < count; ++row) {
        const std::string text = "<!Field " + std::to_string(row) + "!>";
        pages.smartFieldModule.SmartFieldList.at(row) = text;
        pages.create19.SmartFields.addItem(text);
    }
    pages.create19.SmartFieldCount = static_cast<std::int16_t>(count);
    pages.create19.SmartFields.setListIndex(0);
}

// A page, how it comes up with so many rows, and what is done on it.
struct Stage {
    std::function<void(Toolkit&, int rows)> enter;
    std::function<std::vector<Action>(Toolkit&)> actions;
};

const std::vector<Stage>& stages() {
    static const auto showTopics = [](Toolkit& pages, int rows) {
        pages.create8.show();
        fillTopics(pages, rows);
    };
    static const std::vector<Stage> all{
        {[](Toolkit& pages, int rows) {
             fillTopics(pages, rows);
             pages.create5.show();
         },
         onWizard},
        {showTopics, onTopics},
        {[](Toolkit& pages, int rows) {
             showTopics(pages, rows);
             pages.create8.NextBtn.action();
         },
         onOrder},
        {[](Toolkit& pages, int rows) {
             showTopics(pages, rows);
             pages.create8.NextBtn.action();
             pages.create20.NextBtn.action();
         },
         onDependencies},
        {[](Toolkit& pages, int rows) {
             pages.create19.show();
             fillSmartFields(pages, rows);
         },
         onSmartFields},
        {[](Toolkit& pages, int rows) {
             fillProduct(pages, rows);
             fillSmartFields(pages, rows);
             saveNewProduct(pages, "now");
             chooseProduct(pages);
             pages.edit2.show();
         },
         onHub},
    };
    return all;
}

double medianTime(Display& display, const Action& action, int rounds) {
    std::vector<double> times;
    for (int round = -1; round < rounds; ++round) {
        display.event(action.before);
        const double time = timed([&] { display.event(action.run); });
        display.event(action.after);
        if (round >= 0) times.push_back(time);
        if (time > 1'000 && round >= 0) break;
    }
    return median(times);
}

}  // namespace

void measurePages(const Scale& scale) {
    const std::vector<int> sizes = scale.sizes({1'000, 4'000, 16'000});
    for (const auto& makeDisplay : displays()) {
        std::string displayName;
        for (const Stage& stage : stages()) {
            std::vector<Action> known;
            std::vector<std::vector<double>> times;
            for (const int rows : sizes) {
                const auto store = makeStore();
                const auto display = makeDisplay();
                displayName = display->name();
                Running running(*store, display->screen());
                display->event([&] { stage.enter(running.pages, rows); });
                known = stage.actions(running.pages);
                times.resize(known.size());
                for (std::size_t a = 0; a < known.size(); ++a) {
                    times[a].push_back(medianTime(*display, known[a], scale.rounds(9)));
                }
                endEvent(*store);
                removeTree(*store, "Software\\Vrix");
            }
            for (std::size_t a = 0; a < known.size(); ++a) {
                const std::string figure = "d " + displayName + ", " + known[a].name;
                std::string detail;
                for (const double time : times[a]) detail += text(time) + ' ';
                report(figure + ", growth", growth(sizes, times[a]), 1.1, detail + "ms");
                if (!known[a].touchesStore) report(figure + ", ms", times[a][1], known[a].limit);
            }
        }
    }
}

}  // namespace vrix::bench
