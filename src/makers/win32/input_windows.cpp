#include "makers/win32/input_windows.h"

#include <algorithm>
#include <array>

#include "makers/win32/pictures.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

// The text of an option button as the user sees it: "&&" is one "&".
std::wstring asSeen(const std::wstring& caption) {
    std::wstring result;
    for (std::size_t i = 0; i < caption.size(); i += caption.compare(i, 2, L"&&") == 0 ? 2 : 1) result += caption[i];
    return result;
}

}  // namespace

TextBoxWindow::TextBoxWindow(FormWindow& owner, TextBox& box)
    : ControlWindow(owner, box, {L"EDIT", WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}), box_(box) {
    send(EM_SETLIMITTEXT, 0);  // no limit
}

RECT TextBoxWindow::place() const { return lineBox(); }

// A text in a disabled box can be read, marked and copied.
bool TextBoxWindow::enabled() const { return ControlWindow::enabled() || !box_.text().empty(); }

void TextBoxWindow::update() {
    ControlWindow::update();
    const bool readOnly = !ControlWindow::enabled();
    if (((styleBits() & ES_READONLY) != 0) != readOnly) send(EM_SETREADONLY, readOnly);
    if (!unfinished()) show(wide(box_.text()));
}

// Shows a text, and keeps caret and selection at the same characters.
void TextBoxWindow::show(const std::wstring& text) {
    const std::wstring before = windowText(handle());
    if (before == text) return;
    std::array<DWORD, 2> marked{};
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&marked[0]), reinterpret_cast<LPARAM>(&marked[1]));
    setText(text);
    for (DWORD& place : marked) place = static_cast<DWORD>(wide(narrow(before.substr(0, place))).size());
    send(EM_SETSEL, marked[0], static_cast<LPARAM>(marked[1]));
}

// Whether a character is incomplete: an input method is composing it, or its low surrogate is still to come.
bool TextBoxWindow::unfinished() const {
    DWORD caret = 0;
    send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    const std::wstring text = windowText(handle()).substr(0, caret);
    return composing_ || (!text.empty() && IS_HIGH_SURROGATE(text.back()));
}

// The box shows what is stored: a character that the code page lacks is replaced at once by what it encodes to.
void TextBoxWindow::notified(int code) {
    if (code != EN_CHANGE || unfinished()) return;
    const bool taken = ControlWindow::enabled();
    const std::string kept = taken ? narrow(windowText(handle())) : box_.text();
    screen().event([&] {
        const FlagGuard quiet = screen().quietly();
        show(wide(kept));
        if (taken) box_.setText(kept);
    });
}

LRESULT TextBoxWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_IME_STARTCOMPOSITION) composing_ = true;
    const LRESULT result = ControlWindow::message(message, wParam, lParam);
    if (message == WM_IME_ENDCOMPOSITION) {
        composing_ = false;
        notified(EN_CHANGE);
    }
    return result;
}

void MarkWindow::show(const std::wstring& caption, bool marked) {
    constexpr int markWidth = 20;  // including the gap behind it
    const std::wstring fitting = shortened(font(), caption, style().px(control().bounds().width - markWidth));
    explain(caption, fitting != caption);
    setText(withMark(fitting));
    const auto state = static_cast<WPARAM>(marked ? BST_CHECKED : BST_UNCHECKED);
    if (static_cast<WPARAM>(send(BM_GETCHECK)) != state) send(BM_SETCHECK, state);
}

CheckBoxWindow::CheckBoxWindow(FormWindow& owner, CheckBox& box)
    : MarkWindow(owner, box, {L"BUTTON", WS_TABSTOP | WS_GROUP | BS_CHECKBOX}), box_(box) {}

void CheckBoxWindow::update() {
    ControlWindow::update();
    show(wide(box_.caption()), box_.value() == 1);
}

void CheckBoxWindow::notified(int code) {
    if (code == BN_CLICKED) screen().event([this] { box_.setValue(1 - box_.value()); });
}

// Some themes do not draw a disabled box as disabled.
LRESULT CheckBoxWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsWindowEnabled(handle())) return MarkWindow::message(message, wParam, lParam);
    if (message == WM_PAINT) return paintDisabled(), 0;
    const LRESULT result = MarkWindow::message(message, wParam, lParam);
    if (message == BM_SETCHECK || message == WM_SETTEXT || message == WM_ENABLE) redraw();
    return result;
}

void CheckBoxWindow::paintDisabled() {
    RECT area = clientArea();
    const Painting painting(handle());
    if (IsRectEmpty(&area)) return;
    const Buffer buffer(painting, area);
    fill(buffer.dc(), area, owner().surfaceColour(box_));
    drawMark(buffer.dc(), 0, area, box_.value() == 1, false, style());
    area.left = style().px(markSide) + measured(font(), L"0", area.right, DT_SINGLELINE).cx / 2;
    const Colour grey = style().palette().greyText;
    drawText(buffer.dc(), font(), grey, windowText(handle()), area, DT_SINGLELINE | DT_VCENTER);
}

OptionButtonWindow::OptionButtonWindow(FormWindow& owner, OptionButton& button)
    : MarkWindow(owner, button, {L"BUTTON", WS_GROUP | BS_AUTORADIOBUTTON}), button_(button) {}

void OptionButtonWindow::update() {
    ControlWindow::update();
    show(asSeen(wide(button_.caption())), button_.chosen());
    // Tab stops at the chosen button of the group, or at its first while none is chosen.
    const auto all = group();
    const OptionButton* stop = chosen() != nullptr ? chosen() : all.front();
    for (const OptionButton* other : all) {
        if (auto* window = static_cast<OptionButtonWindow*>(owner().find(*other))) {
            window->setStyle(WS_TABSTOP, other == stop);
        }
    }
}

// The chosen button of the group; null while none is.
const OptionButton* OptionButtonWindow::chosen() const {
    const auto all = group();
    const auto found = std::find_if(all.begin(), all.end(), [](const OptionButton* other) { return other->chosen(); });
    return found == all.end() ? nullptr : *found;
}

const Control* OptionButtonWindow::standIn() const { return button_.chosen() ? nullptr : chosen(); }

void OptionButtonWindow::notified(int code) {
    if (code == BN_CLICKED) screen().event([this] { button_.choose(); });
}

}  // namespace vrix
