#include "product.h"

#include <cstdio>
#include <cstdlib>

#include "forms/event.h"
#include "pages/wizard/product_options.h"

namespace vrix::bench {

std::string topicName(int row) { return "Topic number " + std::to_string(row); }

std::string topicPath(int row) { return "C:\\Courses\\Manual\\topic" + std::to_string(row) + ".doc"; }

void fillTopics(Toolkit& pages, int topics) {
    Create8& page = pages.create8;
    page.Topics.clear();
    page.TopicNames.sizeTo(topics);
    page.TopicPaths.sizeTo(topics);
    for (int row = 0; row < topics; ++row) {
        page.TopicNames.at(row) = topicName(row);
        page.TopicPaths.at(row) = topicPath(row);
        page.Topics.addItem(topicName(row));
    }
    page.i = static_cast<std::int16_t>(topics);
    page.Topics.setListIndex(topics - 1);
}

void fillProduct(Toolkit& pages, int topics) {
    pages.create2.ProductName.setText(productKey);
    pages.create2.ProductKey.setText(productKey);
    for (const Option& option : pages.options.all()) {
        const std::string folder = option.isPath ? "C:\\Courses\\Manual\\" : "";
        if (is<TextBox>(*option.control)) option.control->restore(folder + option.name + ".doc");
    }
    fillTopics(pages, topics);
    pages.create9.Depends.sizeTo(topics);
    for (int row = 1; row < topics; ++row) pages.create9.Depends.at(row) = std::to_string(row - 1);
}

void chooseProduct(Toolkit& pages) {
    pages.edit1.initEdit1();
    pages.edit1.isDeveloper = true;
    pages.edit1.ProductRegKey = std::string("Toolkit\\") + productKey;
}

void removeTree(Registry& store, const std::string& path) {
    RegistryKey key = 0;
    if (store.openKey(hive::localMachine, path, access::change, key) != RegistryStatus::success) return;
    char name[256];
    while (store.enumKey(key, 0, name, sizeof name) == RegistryStatus::success) removeTree(store, path + '\\' + name);
    store.closeKey(key);
    static_cast<void>(store.deleteKey(hive::localMachine, path));
}

namespace {

class HeadlessDisplay final : public Display {
public:
    std::string name() const override { return "headless"; }
    Screen& screen() override { return windows_; }
    void event(const Work& event) override { runEvent(windows_, orEnd(event)); }

private:
    HeadlessWindows windows_;
};

}  // namespace

std::unique_ptr<Display> makeHeadlessDisplay() { return std::make_unique<HeadlessDisplay>(); }

Work orEnd(const Work& event) {
    return [event] {
        try {
            event();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            std::exit(1);
        }
    };
}

}  // namespace vrix::bench
