#include "walk.h"

#include <sstream>

#include "forms/event.h"

namespace vrix {

namespace {

void dump(cRegistry& cursor, const std::string& section, std::string& out) {
    cursor.SectionKey = "Software\\Vrix\\" + section;
    if (!cursor.KeyExists()) return;
    out += '[' + section + "]\n";
    std::vector<std::string> names;
    std::int32_t count = 0;
    cursor.EnumerateValues(names, count);
    for (const std::string& name : names) {
        cursor.ValueKey = name;
        out += name + '=' + textOf(cursor.Value()) + '\n';
    }
    cursor.EnumerateSections(names, count);
    for (const std::string& name : names) dump(cursor, section.empty() ? name : section + '\\' + name, out);
}

}  // namespace

// The environment knows DOCS alone.
Walk::Walk()
    : Walk(std::make_shared<AnyStore>(nullptr, [](const std::string& name) {
          return name == "DOCS" ? std::optional<std::string>("C:\\Docs") : std::nullopt;
      })) {}

Walk::Walk(std::shared_ptr<EmbeddedRegistry> left)
    : stored(std::move(left)), program({machine, windows, dialog, machine, clock}) {}

Walk& Walk::start() {
    runEvent(windows, [&] { program.start(); });
    windows.passTime();
    return *this;
}

Walk& Walk::addTopic(const std::string& name, const std::string& topicPath) {
    user.type("TopicName", name).type("TopicPath", topicPath).press("CreateBtn");
    return *this;
}

Walk& Walk::createTo(const std::string& page) {
    if (windows.visibleForms().empty()) start();
    user.pressTask("CreateImg");
    while (front() != page) {
        const std::string here = front();
        fillLeast(here);
        user.press("NextBtn");
        if (front() == here) throw std::logic_error("stuck on " + here + ": " + message());
    }
    return *this;
}

void Walk::fillLeast(const std::string& page) {
    if (page == "Create2") user.type("ProductName", "Manual");
    if (page == "Create3") user.type("CoverPage1", "c.doc").type("CoverPage1Name", "Cover");
    if (page == "Create8") addTopic("Intro", "intro.doc").addTopic("Tools", "tools.doc");
    if (page == "Create10") user.type("UserDef1Path", "field.doc");
}

Walk& Walk::createProduct(const std::string& name) {
    createTo("Create18");
    pages.create2.ProductKey.setText(name);
    pages.create2.ProductName.setText(name);
    user.press("NextBtn");
    return *this;
}

Walk& Walk::editProduct(int row) {
    user.pressTask("EditImg").choose("ProductList", row).press("NextBtn");
    return *this;
}

void Walk::setOptions(unsigned run, const std::string& page) {
    for (int round = 0; round < 2; ++round) {  // a path turns on flags that were set before it
        for (const ToldOption& option : toldOptions()) {
            if (page.empty() || page == option.page)
                control(pages, option.page, option.control).restore(option.content(run));
        }
    }
}

std::string Walk::message() {
    if (windows.messages.empty()) return {};
    const ShownMessage last = windows.messages.back();
    windows.messages.clear();
    return last.title + ": " + last.text;
}

std::string Walk::text(const std::string& formName, const std::string& name) {
    const Control& found = control(pages, formName, name);
    if (const auto* label = dynamic_cast<const Label*>(&found)) return label->caption();
    if (const auto* label = dynamic_cast<const ButtonLabel*>(&found)) return label->caption();
    return found.stored();
}

void Walk::put(const std::string& section, const std::string& name, const std::string& data) {
    pages.settings.SaveSetting(application, section, name, data);
}

std::string Walk::tree(const std::string& section) {
    std::string out;
    cRegistry cursor(registry);
    cursor.ClassKey = hive::localMachine;
    dump(cursor, section, out);
    return out;
}

std::string expected(const std::string& name) { return bytesOf(VRIX_EXPECTED "/" + name); }

std::string ToldOption::content(unsigned run) const {
    const bool isNumber = kind == "flag" || kind == "index";
    return isNumber ? std::to_string(number >> run % 7 & 1) : "C:\\t" + std::to_string(100 * run + number);
}

std::vector<ToldOption> toldOptions() {
    std::istringstream lines(expected("options.table"));
    std::vector<ToldOption> all;
    for (ToldOption o; lines >> o.name >> o.page >> o.control >> o.kind; ++o.number) all.push_back(o);
    return all;
}

}  // namespace vrix
