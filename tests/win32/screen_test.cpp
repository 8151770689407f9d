#include <gtest/gtest.h>
#include <windows.h>

#include "common/runtime_failure.h"
#include "makers/embedded/memory_registry.h"
#include "makers/win32/control_window.h"
#include "makers/win32/modal.h"
#include "makers/win32/wide_text.h"
#include "program/run_on_windows.h"

namespace vrix {

namespace {

const std::string endless(300, 'W');

std::string className(HWND window) {
    char name[20]{};
    GetClassNameA(window, name, sizeof(name));
    return name;
}

// The frames that are on the screen, the front one first.
std::vector<HWND> shownFrames() {
    std::vector<HWND> frames;
    const auto take = [](HWND window, LPARAM found) WINAPI -> BOOL {
        const bool shown = IsWindowVisible(window) && className(window) == "VrixFrame";
        if (shown) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&frames));
    return frames;
}

// The window of the form in a frame.
HWND formIn(HWND frame) {
    HWND form = GetWindow(frame, GW_CHILD);
    while (form != nullptr && !(GetWindowLongA(form, GWL_STYLE) & WS_VISIBLE)) form = GetWindow(form, GW_HWNDNEXT);
    return form;
}

HWND shownForm() { return shownFrames().empty() ? nullptr : formIn(shownFrames().front()); }

std::vector<ControlWindow*> shownControls() {
    std::vector<ControlWindow*> found;
    for (HWND child = GetWindow(shownForm(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        ControlWindow* control = ControlWindow::of(child);
        if (control != nullptr && control->shown()) found.push_back(control);
    }
    return found;
}

HWND windowOf(const Control& control) {
    for (const ControlWindow* window : shownControls()) {
        if (&window->control() == &control) return window->handle();
    }
    return nullptr;
}

// Runs the message loop until a condition holds, at most two seconds.
template <class Condition>
bool comes(const Condition& condition) {
    for (int looks = 0; looks < 200 && !condition(); ++looks, Sleep(10)) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    }
    return condition();
}

void setDpi(int dpi, const RECT& suggested) {
    SendMessageA(shownFrames().front(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

void setTextScale(DWORD percent) {
    RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\Microsoft\\Accessibility", "TextScaleFactor", REG_DWORD, &percent,
                    sizeof(percent));
    for (const HWND frame : shownFrames()) {
        SendMessageA(frame, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>("WindowMetrics"));
    }
}

// The size of a control's text in its font.
SIZE textSize(HWND control, int width, UINT format) {
    const auto font = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    return measured(font, windowText(control) + L' ', width, format);
}

class ScreenTest : public testing::Test {
protected:
    void SetUp() override {
        program.toolkit().settings.SaveSetting(application, "Products", endless, "Key");
        program.toolkit().create20.Edit = true;  // it does not load without Topics
    }
    void TearDown() override {
        screen.quit();
        screen.run();  // which destroys the windows
        MSG end;
        PeekMessageA(&end, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
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

    void press(ImageButton& button) {
        screen.event([&] { button.mouseUp(); });
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
        const bool presses = dynamic_cast<const Label&>(control).presses != nullptr;
        const bool cut = !presses && (GetWindowLongA(handle, GWL_STYLE) & SS_NOTIFY) != 0;  // clipped, with a tooltip
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
        struct Scale {
            int dpi;
            int text;  // in per cent
        };
        for (const auto& [dpi, text] : {Scale{96, 100}, Scale{120, 100}, Scale{144, 100}, Scale{192, 100},
                                        Scale{288, 100}, Scale{96, 130}, Scale{96, 225}}) {
            SCOPED_TRACE(std::to_string(dpi) + ", " + std::to_string(text));
            setTextScale(static_cast<DWORD>(text));
            setDpi(dpi, {});
            const Style style(MulDiv(dpi, text, 100));
            EXPECT_EQ(areaOf(shownForm()).right - areaOf(shownForm()).left, style.px(form.size().width));
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
    setTextScale(100);
}

TEST_F(ScreenTest, ShowsAllPagesInOneFrameWhereTheUserLeftIt) {
    Toolkit& pages = program.toolkit();
    screen.event([&] { pages.toolkitMain.show(); });
    const std::vector<HWND> frame = shownFrames();
    SetWindowPos(frame.front(), nullptr, 30, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const RECT left = areaOf(frame.front());
    const auto go = [&](Form& from, Form& to) {
        screen.event([&] { leaveFor(from, to); });
        EXPECT_EQ(shownForm(), formIn(shownFrames().front()));
        EXPECT_TRUE(to.visible());
        return shownFrames();
    };
    EXPECT_EQ(go(pages.toolkitMain, pages.create5), frame);
    EXPECT_EQ(areaOf(frame.front()).top, 200);
    EXPECT_EQ(go(pages.create5, pages.create6), frame);
    EXPECT_EQ(go(pages.create6, pages.toolkitMain), frame);
    const RECT again = areaOf(frame.front());
    EXPECT_TRUE(EqualRect(&again, &left));  // the page is wider, and was moved in from the edge
    // Two pages have two frames, until one of them is hidden.
    go(pages.toolkitMain, pages.create17);
    press(pages.create17.ExitBtn);
    EXPECT_EQ(shownFrames().size(), 2);
    EXPECT_EQ(go(pages.toolkitMain, pages.create17), frame);
}

TEST_F(ScreenTest, KeepsTheFocusWhileAwayAndBeginsANewPageAtItsFirstInput) {
    Toolkit& pages = program.toolkit();
    screen.event([&] { pages.create5.show(); });
    const HWND frame = shownFrames().front();
    const HWND box = windowOf(*pages.create5.find("AllowNoCourseBriefing"));
    SetFocus(box);
    press(pages.create5.NextBtn);
    const HWND path = windowOf(*pages.create6.find("TOCPath"));
    EXPECT_EQ(GetFocus(), path);
    SetFocus(windowOf(pages.create6.ExitBtn));
    press(pages.create6.BackBtn);
    EXPECT_EQ(GetFocus(), box);
    press(pages.create5.NextBtn);
    EXPECT_EQ(GetFocus(), path);
    // Minimised. A change of the scale waits.
    screen.event([&] { pages.create6.find("TOCPath")->restore("a path"); });
    SendMessageA(path, EM_SETSEL, 1, 3);
    ShowWindow(frame, SW_MINIMIZE);
    setDpi(144, areaOf(frame));
    ShowWindow(frame, SW_RESTORE);
    EXPECT_TRUE(comes([&] { return GetFocus() == path; }));
    EXPECT_EQ(SendMessageA(path, EM_GETSEL, 0, 0), MAKELONG(1, 3));
    EXPECT_EQ(areaOf(shownForm()).right - areaOf(shownForm()).left, 960);
    // A page that is disabled takes no key.
    screen.event([&] { pages.create6.setEnabled(false); });
    EXPECT_EQ(GetFocus(), frame);
    screen.event([&] { pages.create6.setEnabled(true); });
    EXPECT_EQ(GetFocus(), path);
}

TEST_F(ScreenTest, FollowsThePlatformToAnotherMonitorAndIgnoresWhatConcernsOthers) {
    Toolkit& pages = program.toolkit();
    screen.event([&] { pages.create5.show(); });
    const HWND box = windowOf(*pages.create5.find("CourseBriefPath"));
    SIZE size{};
    SendMessageA(shownFrames().front(), WM_GETDPISCALEDSIZE, 120, reinterpret_cast<LPARAM>(&size));
    SendMessageA(shownFrames().front(), WM_ENTERSIZEMOVE, 0, 0);
    const RECT suggested{-200, 100, size.cx - 200, 100 + size.cy};
    setDpi(120, suggested);
    const RECT area = areaOf(shownFrames().front());
    EXPECT_TRUE(EqualRect(&area, &suggested));
    const LRESULT font = SendMessageA(box, WM_GETFONT, 0, 0);
    SendMessageA(shownFrames().front(), WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>("Environment"));
    EXPECT_EQ(SendMessageA(box, WM_GETFONT, 0, 0), font);
}

TEST_F(ScreenTest, EndsHoverAndPressWhenPointerOrCaptureIsLost) {
    ImageButton& button = program.toolkit().create5.NextBtn;
    screen.event([&] { program.toolkit().create5.show(); });
    const RECT area = areaOf(windowOf(button));
    const auto has = [&](ImageButton::Face face) { return comes([&] { return button.face() == face; }); };
    SetCursorPos(area.left + 2, area.top + 2);
    EXPECT_TRUE(has(ImageButton::Face::hover));
    SetCursorPos(0, 0);  // in one step, without crossing the page
    EXPECT_TRUE(has(ImageButton::Face::normal));
    SendMessageA(windowOf(button), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    EXPECT_TRUE(has(ImageButton::Face::pressed));
    ReleaseCapture();
    EXPECT_EQ(button.face(), ImageButton::Face::normal);
    EXPECT_TRUE(program.toolkit().create5.visible());
}

TEST_F(ScreenTest, ReportsAFailureAndIgnoresInputMeanwhile) {
    static HWND next = nullptr;
    screen.event([&] { program.toolkit().create5.show(); });
    next = windowOf(program.toolkit().create5.NextBtn);
    const auto answer = [](HWND, UINT, UINT_PTR timer, DWORD) WINAPI {
        const HWND box = FindWindowA("#32770", programTitle);
        if (box == nullptr) return;
        KillTimer(nullptr, timer);
        SendMessageA(next, BM_CLICK, 0, 0);
        SendMessageA(GetParent(next), WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(next)),
                     reinterpret_cast<LPARAM>(next));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    };
    SetTimer(nullptr, 0, 50, answer);
    screen.event([] { throw RuntimeFailure(FailureNumber::typeMismatch); });
    EXPECT_EQ(screen.run(), 1);
    EXPECT_TRUE(program.toolkit().create5.visible());
}

// Any program can send a message, or destroy a window.
TEST_F(ScreenTest, LooksUpTheHandlesInMessages) {
    Toolkit& pages = program.toolkit();
    screen.event([&] { pages.create5.show(); });
    const HWND form = shownForm();
    const HWND stranger = CreateWindowA("STATIC", "", WS_CHILD, 0, 0, 9, 9, form, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(stranger, GWLP_USERDATA, 1);
    for (const HWND named : {stranger, form, GetDesktopWindow(), reinterpret_cast<HWND>(LONG_PTR{1})}) {
        const auto handle = reinterpret_cast<LPARAM>(named);
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_LISTBOX;
        item.hwndItem = named;
        SendMessageA(form, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
        SendMessageA(form, WM_COMMAND, MAKEWPARAM(100, BN_CLICKED), handle);
        SendMessageA(form, WM_CTLCOLORSTATIC, 0, handle);
        SendMessageA(form, WM_NEXTDLGCTL, static_cast<WPARAM>(handle), TRUE);
    }
    SetFocus(stranger);
    screen.event([] {});
    SendMessageA(FindWindowExA(HWND_MESSAGE, nullptr, "VrixForm", nullptr), WM_TIMER, 1, 0);
    const HWND path = windowOf(*pages.create5.find("CourseBriefPath"));
    DestroyWindow(path);
    EXPECT_EQ(ControlWindow::of(path), nullptr);
    DestroyWindow(stranger);
    screen.event([&] { pages.create5.find("CourseBriefPath")->restore("a path"); });
    press(pages.create5.NextBtn);
    press(pages.create6.BackBtn);
    EXPECT_EQ(pages.create5.find("CourseBriefPath")->stored(), "a path");
    EXPECT_TRUE(pages.create5.visible());
}

TEST_F(ScreenTest, KeepsTheCurrentFolderWhateverADialogDoes) {
    const auto folder = [] {
        std::string name(MAX_PATH, '\0');
        name.resize(GetCurrentDirectoryA(MAX_PATH, name.data()));
        return name;
    };
    const std::string before = folder();
    {
        const Modal modal(screen);
        SetCurrentDirectoryA("C:\\windows");
    }
    EXPECT_EQ(folder(), before);
}

// A screen reader takes everything about a control from its window: the class, the text, the style and the state.
TEST_F(ScreenTest, GivesScreenReadersRoleNameAndStateOfEachControl) {
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
            const ControlWindow* focused = ControlWindow::of(GetFocus());
            const bool atButton = is<ImageButton>(focused->control()) || is<TaskPicture>(focused->control());
            const bool pressed = atButton ? handle == GetFocus() : control.name() == "NextBtn";
            const LRESULT kind = DLGC_BUTTON | (pressed ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
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

TEST_F(ScreenTest, OpensListsAsWideAsTheirRowsAndWholeOnTheMonitor) {
    ComboBox& list = program.toolkit().create4.DefaultCoverPage;
    program.toolkit().create3.CoverPage1Name.setText(endless.substr(0, 60));
    screen.event([&] { program.toolkit().create4.show(); });
    const HWND combo = windowOf(list);
    const int right = GetSystemMetrics(SM_CXSCREEN);
    SetWindowPos(shownFrames().front(), nullptr, right - 500, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_GT(SendMessageA(combo, CB_GETDROPPEDWIDTH, 0, 0), textSize(combo, 0, DT_SINGLELINE).cx);
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    GetComboBoxInfo(combo, &info);
    EXPECT_TRUE(comes([&] { return areaOf(info.hwndList).right == right; }));
    SendMessageA(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

// No code page of these tests has Thai letters and emoji.
TEST_F(ScreenTest, ShowsATextAsTheCodePageEncodesIt) {
    TextBox& name = program.toolkit().create2.ProductName;
    screen.event([&] { program.toolkit().create2.show(); });
    const HWND box = windowOf(name);
    const auto send = [&](UINT message, WPARAM wParam, const wchar_t* text = nullptr) {
        SendMessageW(box, message, wParam, reinterpret_cast<LPARAM>(text));
    };
    const auto expect = [&](const std::wstring& shown, const std::string& kept) {
        EXPECT_EQ(windowText(box), shown);
        EXPECT_EQ(name.text(), kept);
    };
    send(WM_SETTEXT, 0, L"a\u0e01");
    expect(L"a?", "a?");
    SendMessageW(box, EM_SETSEL, 1, 1);
    send(EM_REPLACESEL, TRUE, L"\u0e01b");  // as a paste does
    send(WM_CHAR, 'c');
    expect(L"a?bc?", "a?bc?");
    send(WM_CHAR, 0xD83D);  // a high surrogate
    expect(L"a?bc\xD83D?", "a?bc?");
    send(WM_CHAR, 0xDE00);
    expect(L"a?bc???", "a?bc???");
    send(WM_IME_STARTCOMPOSITION, 0);
    send(EM_REPLACESEL, TRUE, L"\u0e01d");
    expect(L"a?bc??\u0e01d?", "a?bc???");
    send(WM_IME_ENDCOMPOSITION, 0);
    expect(L"a?bc???d?", "a?bc???d?");
}

}  // namespace vrix
