#include "walk.h"

#include <algorithm>
#include <sstream>

#include "forms/event.h"
#include "stubs.h"

namespace vrix {

namespace {

void dump(cRegistry& cursor, const std::string& root, const std::string& section, std::string& out) {
    cursor.SectionKey = root + section;
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
    for (const std::string& name : names) dump(cursor, root, section.empty() ? name : section + '\\' + name, out);
}

}  // namespace

// The environment knows DOCS alone.
Walk::Walk()
    : Walk(std::make_shared<StubRegistry>([](const std::string& name) {
          return name == "DOCS" ? std::optional<std::string>("C:\\Docs") : std::nullopt;
      })) {}

Walk::Walk(std::shared_ptr<EmbeddedRegistry> left)
    : stored(std::move(left)), program({machine, windows, dialog, machine, clock}) {}

Walk& Walk::start() {
    runEvent(windows, [&] { program.start(); });
    windows.passTime();
    return *this;
}

Walk& Walk::act(const std::string& words) {
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        std::replace(word.begin(), word.end(), '_', ' ');
        const std::string name = word.substr(0, word.find_first_of("=*"));
        const std::string value = word.substr(std::min(name.size() + 1, word.size()));
        const Control* target = user.form().find(name);
        if (dynamic_cast<const TextBox*>(target)) {
            user.type(name, value);
        } else if (dynamic_cast<const CheckBox*>(target)) {
            user.check(name, value == "1");
        } else if (dynamic_cast<const ComboBox*>(target)) {
            user.choose(name, std::stoi(value));
        } else if (dynamic_cast<const MarkList*>(target)) {
            user.mark(name, std::abs(std::stoi(value)), value[0] != '-');
        } else if (dynamic_cast<const OptionButton*>(target)) {
            user.choose(name);
        } else if (dynamic_cast<const TaskPicture*>(target)) {
            user.pressTask(name);
        } else {
            for (int times = value.empty() ? 1 : std::stoi(value); times > 0; --times) user.press(name);
        }
    }
    return *this;
}

Walk& Walk::createTo(const std::string& page) {
    if (windows.visibleForms().empty()) start();
    for (act("CreateImg"); front() != page;) {
        const std::string here = front();
        fillLeast(here);
        if (act("NextBtn").front() == here) throw std::logic_error("stuck on " + here + ": " + message());
    }
    return *this;
}

void Walk::fillLeast(const std::string& page) {
    if (page == "Create2") act("ProductName=Manual");
    if (page == "Create3") act("CoverPage1=c.doc CoverPage1Name=Cover");
    if (page == "Create8")
        act("TopicName=Intro TopicPath=intro.doc CreateBtn TopicName=Tools TopicPath=tools.doc CreateBtn");
    if (page == "Create10") act("UserDef1Path=field.doc");
}

Walk& Walk::createProduct(const std::string& name) {
    createTo("Create18");
    pages.create2.ProductKey.setText(name);
    pages.create2.ProductName.setText(name);
    return act("NextBtn");
}

Walk& Walk::editProduct(int row) { return act("EditImg ProductList=" + std::to_string(row) + " NextBtn"); }

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

std::string Walk::tree(const std::string& section, const std::string& root) {
    std::string out;
    cRegistry cursor(registry);
    cursor.ClassKey = hive::localMachine;
    dump(cursor, root, section, out);
    return out;
}

std::string expected(const std::string& name) { return bytesOf(VRIX_EXPECTED "/" + name); }

std::string ToldOption::content(unsigned run) const {
    const bool isNumber = kind == "flag" || kind == "index";
    return isNumber ? std::to_string(number >> run % 7 & 1) : "C:\\t" + std::to_string(100 * run + number);
}

const std::vector<ToldOption>& toldOptions() {
    static const std::vector<ToldOption> told = [] {
        std::istringstream lines(expected("options.table"));
        std::vector<ToldOption> all;
        for (ToldOption o; lines >> o.name >> o.page >> o.control >> o.kind; ++o.number) all.push_back(o);
        return all;
    }();
    return told;
}

}  // namespace vrix
