#include "walk.h"

namespace vrix {
namespace {

// Every byte that a text can hold, and a text longer than any window shows.
std::string allBytes() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

TEST(OddInput, AnyTextOfAnyLengthReachesStoreAndFile) {
    const std::string bytes = allBytes();
    const std::string longText(100'000, 'x');
    Walk walk;
    walk.createTo("Create2");
    walk.user.type("ProductName", bytes).type("ProductKey", "K").type("DefaultCourseName", longText).press("NextBtn");
    walk.user.type("CoverPage1", longText).type("CoverPage1Name", bytes).press("NextBtn");
    EXPECT_EQ(walk.pages.create4.DefaultCoverPage.text(), bytes);
    for (int n = 0; n < 4; ++n) walk.user.press("NextBtn");
    walk.addTopic(bytes, longText).addTopic(longText, bytes).user.press("NextBtn").press("NextBtn");
    walk.user.mark("DependsList", 0);
    for (int n = 0; n < 5; ++n) walk.user.press("NextBtn");
    walk.user.type("SmartFieldText", bytes).press("CreateBtn").press("NextBtn").press("NextBtn");
    walk.user.type("SettingsPath", walk.path("odd.kls")).press("NextBtn");
    ASSERT_EQ(walk.front(), "ToolkitMain");
    const auto stored = [&](const std::string& below, const std::string& name) {
        return walk.pages.settings.GetSetting(application, "Toolkit\\K" + below, name, "");
    };
    EXPECT_EQ(walk.pages.settings.GetSetting(application, "Toolkit\\Products", bytes, ""), "K");
    EXPECT_EQ(stored("\\Options", "DefaultCourseName"), longText);
    EXPECT_EQ(stored("\\Options", "CoverPage1Name"), bytes);
    EXPECT_EQ(stored("\\Topics", bytes), longText);
    EXPECT_EQ(stored("\\Topics", longText), "");  // longer than a name can be: refused without a word
    EXPECT_EQ(stored("\\Dependencies\\Matrix", "0"), "1");
    EXPECT_EQ(stored("\\SmartFields", "SmartField1"), "<!" + bytes + "!>");
    EXPECT_NE(walk.file("odd.kls").find("\r\n\"" + longText + "\"=\"1\"\r\n"), std::string::npos);
    EXPECT_NE(walk.file("odd.kls").find("\"CoverPage1Name\"=\"" + bytes + "\"\r\n"), std::string::npos);
}

TEST(OddInput, KeysThatAreNoPlainNames) {
    struct Case {
        std::string key;
        std::string root;  // where the Product stands in the end; empty: nowhere
    };
    const std::vector<Case> cases{
        {"A\\B\\C", "Toolkit\\A\\B\\C"}, {"A\\\\B\\", "Toolkit\\A\\B"},
        {"\\A", "Toolkit\\A"},           {"a/b \"c\" & d", "Toolkit\\a/b \"c\" & d"},
        {std::string(300, 'k'), ""},     {"Products", "Toolkit\\Products"},
    };
    for (const auto& [key, root] : cases) {
        Walk walk;
        walk.start().createProduct(key);
        EXPECT_EQ(walk.message().find("Run-time"), std::string::npos) << key;
        EXPECT_EQ(walk.pages.settings.GetSetting(application, "Toolkit\\Products", key, ""), key);
        EXPECT_EQ(walk.pages.settings.GetSetting(application, root, "Creation Date", ""),
                  root.empty() ? "" : walk.clock.text);
    }
}

}  // namespace
}  // namespace vrix
