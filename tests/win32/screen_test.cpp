#include <gtest/gtest.h>
#include <windows.h>

#include "makers/embedded/memory_registry.h"
#include "makers/win32/control_window.h"
#include "makers/win32/wide_text.h"
#include "program/run_on_windows.h"

namespace vrix {

namespace {

const std::string endless(300, 'W');

// The window of the form that is on the screen.
HWND shownForm() {
    HWND form = nullptr;
    const auto take = [](HWND window, LPARAM found) WINAPI -> BOOL {
        if (IsWindowVisible(window) && GetWindow(window, GW_CHILD) != nullptr) *reinterpret_cast<HWND*>(found) = window;
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&form));
    return form;
}

std::vector<ControlWindow*> shownControls() {
    std::vector<ControlWindow*> found;
    for (HWND child = GetWindow(shownForm(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (ControlWindow::of(child)->shown()) found.push_back(ControlWindow::of(child));
    }
    return found;
}

// The size that a control's text takes at its font.
SIZE textSize(HWND control, int width, UINT format) {
    const HDC dc = GetDC(control);
    const Selected font(dc, reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
    const SIZE size = measured(dc, narrow(windowText(control)) + ' ', width, format);
    ReleaseDC(control, dc);
    return size;
}

class ScreenTest : public testing::Test {
protected:
    void SetUp() override {
        program.toolkit().settings.SaveSetting(application, "Products", endless, "Key");
        program.toolkit().create20.Edit = true;  // it does not load without Topics
    }
    void TearDown() override {
        screen.quit();
        screen.run();  // which takes the windows away
    }

    // Shows one form after the other.
    template <class Look>
    void forEachForm(const Look& look) {
        for (Form* form : program.toolkit().forms) {
            program.toolkit().create3.CoverPage1Name.setText(endless);  // without which the next page does not load
            screen.event([&] { form->show(); });
            SCOPED_TRACE(form->name());
            ASSERT_FALSE(shownControls().empty());
            look(*form);
            screen.event([&] { form->hide(); });
        }
    }

    MemoryRegistry registry{[](const std::string&) { return std::nullopt; }};
    Win32Screen screen;
    Win32FileDialog dialog{screen};
    StandardFiles files;
    Win32Clock clock;
    Program program{Platform{registry, screen, dialog, files, clock}};
};

void expectTextFits(const ControlWindow& window, const SIZE& room, const Style& style) {
    const HWND handle = window.handle();
    const auto padded = [&](UINT format, int padding) {
        const SIZE size = textSize(handle, 0, format | DT_SINGLELINE);
        EXPECT_LE(size.cx + style.px(padding), room.cx);
        EXPECT_LE(size.cy, room.cy);
    };
    const Control& control = window.control();
    if (is<Label>(control)) {
        const bool cut = (GetWindowLongA(handle, GWL_STYLE) & SS_NOTIFY) != 0;  // and whole in a tip
        EXPECT_EQ(cut, narrow(windowText(handle)) == endless);
        if (cut) return;
        const SIZE size = textSize(handle, room.cx, DT_WORDBREAK | DT_NOPREFIX);
        EXPECT_TRUE(size.cx <= room.cx && size.cy <= room.cy);
    }
    if (is<ImageButton>(control)) padded(DT_NOPREFIX, 8);
    if (is<CheckBox>(control) || is<OptionButton>(control)) padded(0, 16);
    if (is<TextBox>(control) || is<ComboBox>(control)) {
        EXPECT_LE(textSize(handle, 0, DT_SINGLELINE).cy + style.px(4), room.cy);
    }
}

}  // namespace

TEST_F(ScreenTest, FitsAtEveryScaleWithTextsOfAnyLength) {
    forEachForm([&](Form& form) {
        screen.event([&] {
            for (Control* control : form.controls()) {
                if (auto* box = dynamic_cast<TextBox*>(control)) box->setText(endless);
                if (auto* list = dynamic_cast<ComboBox*>(control)) list->addItem(endless);
                if (auto* option = dynamic_cast<OptionButton*>(control)) option->setCaption(endless);
                if (auto* box = dynamic_cast<CheckBox*>(control); box && box->caption().empty())
                    box->setCaption(endless);
            }
            program.toolkit().edit2.Label2.setCaption(endless);
            program.toolkit().delete2.DeleteProductTxt.setCaption(endless);
        });
        for (const int dpi : {96, 120, 144, 192, 288}) {
            SCOPED_TRACE(dpi);
            const RECT corner{};
            SendMessageA(shownForm(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&corner));
            RECT client{};
            GetClientRect(shownForm(), &client);
            const Style style(MulDiv(client.right, 96, form.size().width));
            std::vector<RECT> areas;
            for (const ControlWindow* window : shownControls()) {
                SCOPED_TRACE(window->control().name());
                RECT area{};
                GetWindowRect(window->handle(), &area);
                expectTextFits(*window, {area.right - area.left, area.bottom - area.top}, style);
                MapWindowPoints(nullptr, shownForm(), reinterpret_cast<POINT*>(&area), 2);
                const RECT frame = style.px(window->control().parent().bounds());
                RECT common{};
                EXPECT_TRUE(IntersectRect(&common, &area, &frame) && EqualRect(&common, &area));
                for (const RECT& other : areas) EXPECT_FALSE(IntersectRect(&common, &area, &other));
                areas.push_back(area);
            }
        }
    });
}

// What a screen reader hears of a control comes from its window: the class, the text, the style and the state.
TEST_F(ScreenTest, TellsThePlatformTheRoleTheNameAndTheStateOfEachControl) {
    const auto isA = [](HWND window, const char* kind) {
        char name[20]{};
        return RealGetWindowClassA(window, name, sizeof(name)) != 0 && lstrcmpiA(name, kind) == 0;
    };
    forEachForm([&](Form& form) {
        for (ControlWindow* window : shownControls()) {
            const Control& control = window->control();
            SCOPED_TRACE(control.name());
            const HWND handle = window->handle();
            const HWND before = GetWindow(handle, GW_HWNDPREV);
            const bool pushed = is<ImageButton>(control) || is<TaskPicture>(control);
            if (is<TextBox>(control) || is<ComboBox>(control) || is<MarkList>(control)) {
                EXPECT_TRUE(isA(before, "STATIC") && !windowText(before).empty());
            }
            if (!pushed) continue;
            EXPECT_TRUE(isA(handle, "BUTTON"));
            EXPECT_EQ(GetWindowLongA(handle, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
            EXPECT_FALSE(windowText(handle).empty());
            const LRESULT kind =
                DLGC_BUTTON | (control.name() == "NextBtn" ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
            auto* button = dynamic_cast<ImageButton*>(form.find(control.name()));
            for (const bool disabled : {false, true}) {
                if (button == nullptr && disabled) break;
                if (button != nullptr) screen.event([&] { button->setDisabled(disabled); });
                EXPECT_EQ(IsWindowEnabled(handle) == FALSE, disabled);
                EXPECT_EQ(SendMessageA(handle, WM_GETDLGCODE, 0, 0), disabled ? LRESULT{DLGC_STATIC} : kind);
            }
        }
    });
}

}  // namespace vrix
