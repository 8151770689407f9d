#include "walk.h"

#include <fstream>
#include <sstream>

#include "forms/event.h"

namespace vrix {

namespace {

std::string contents(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::filesystem::path freshFolder() {
    static int number = 0;
    const auto folder = std::filesystem::temp_directory_path() / ("vrix_walk_" + std::to_string(++number));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

void dump(Registry& registry, cRegistryFunctions& settings, const std::string& section, std::string& out) {
    RegistryKey key = 0;
    if (registry.openKey(hive::localMachine, "Software\\Vrix\\" + section, 63, key) != RegistryStatus::success) return;
    out += '[' + section + "]\n";
    char name[512];
    std::uint32_t length = sizeof name;
    for (std::uint32_t i = 0; registry.enumValue(key, i, name, length) == RegistryStatus::success; ++i) {
        out += std::string(name, length) + '=' + settings.GetSetting(application, section, {name, length}, "") + '\n';
        length = sizeof name;
    }
    for (std::uint32_t i = 0; registry.enumKey(key, i, name, sizeof name) == RegistryStatus::success; ++i) {
        dump(registry, settings, section.empty() ? name : section + '\\' + name, out);
    }
    registry.closeKey(key);
}

}  // namespace

std::shared_ptr<EmbeddedRegistry> Walk::freshRegistry() {
    return std::make_shared<MemoryRegistry>([](const std::string& name) -> std::optional<std::string> {
        return name == "DOCS" ? std::optional<std::string>("C:\\Docs") : std::nullopt;
    });
}

Walk::Walk(std::shared_ptr<EmbeddedRegistry> left)
    : stored(std::move(left)), program({machine, windows, dialog, machine, clock}), folder_(freshFolder()) {}

Walk::~Walk() { std::filesystem::remove_all(folder_); }

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

std::string Walk::file(const std::string& name) const { return contents(folder_ / name); }

void Walk::put(const std::string& section, const std::string& name, const std::string& data) {
    pages.settings.SaveSetting(application, section, name, data);
}

std::string Walk::tree(const std::string& section) {
    std::string out;
    cRegistryFunctions settings(registry);
    dump(registry, settings, section, out);
    return out;
}

std::string expected(const std::string& name) { return contents(std::filesystem::path(VRIX_EXPECTED) / name); }

}  // namespace vrix
