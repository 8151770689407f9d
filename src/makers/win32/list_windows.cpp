#include "makers/win32/list_windows.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "makers/win32/pictures.h"
#include "makers/win32/wide_text.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

namespace {

constexpr UINT settleChoices = WM_APP;
constexpr UINT listOpened = WM_APP + 1;
constexpr UINT setMostRowsSeen = 0x1701;    // CB_SETMINVISIBLE
constexpr int rowsSeen = 12;                // of an open list, at most
constexpr int textLeft = 4 + markSide + 6;  // where the text of a row that can be marked begins
constexpr UINT rowFormat = DT_SINGLELINE | DT_NOPREFIX;

}  // namespace

void RowsWindow::showRows(std::vector<std::string> wanted) {
    const auto [old, fresh] = std::mismatch(shown_.begin(), shown_.end(), wanted.begin(), wanted.end());
    const auto ends = std::mismatch(shown_.rbegin(), std::make_reverse_iterator(old), wanted.rbegin(),
                                    std::make_reverse_iterator(fresh));
    auto first = static_cast<std::size_t>(old - shown_.begin());
    auto oldEnd = static_cast<std::size_t>(ends.first.base() - shown_.begin());
    auto end = static_cast<std::size_t>(ends.second.base() - wanted.begin());
    if (oldEnd - first + end - first > wanted.size()) {  // refilling the list is less work
        send(messages_.clear);
        first = oldEnd = 0;
        end = wanted.size();
    }
    while (oldEnd > first) send(messages_.remove, --oldEnd);
    for (; first < end; ++first) {
        send(messages_.insert, first, reinterpret_cast<LPARAM>(wide(wanted[first]).c_str()));
    }
    shown_ = std::move(wanted);
    rowsDiffer_ = false;
}

ComboBoxWindow::ComboBoxWindow(FormWindow& owner, ComboBox& box)
    : RowsWindow(owner, box, {L"COMBOBOX", WS_TABSTOP | WS_GROUP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS},
                 {CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT}),
      box_(box) {
    send(setMostRowsSeen, rowsSeen);
    send(CB_INITSTORAGE, box.rows().size(), 32);
}

// A native combo box counts its open list to its height.
RECT ComboBoxWindow::place() const {
    RECT area = lineBox();
    area.bottom += static_cast<LONG>(rowsSeen * send(CB_GETITEMHEIGHT, 0)) + style().px(2);
    return area;
}

void ComboBoxWindow::layout() {
    ControlWindow::layout();
    constexpr auto ownBox = static_cast<WPARAM>(-1);
    const RECT closed = areaOf(handle());
    const LRESULT border = closed.bottom - closed.top - send(CB_GETITEMHEIGHT, ownBox);
    send(CB_SETITEMHEIGHT, ownBox, style().lineBoxHeight() - border);
}

void ComboBoxWindow::update() {
    ControlWindow::update();
    const std::wstring text = wide(box_.text());
    const RECT room = parts().rcItem;
    explain(text, measured(font(), text, 0, rowFormat).cx > room.right - room.left - style().px(2));
    if (!rowsDiffer() && send(CB_GETCURSEL) == box_.listIndex()) return;
    if (rowsDiffer()) showRows(box_.rows());
    send(CB_SETCURSEL, static_cast<WPARAM>(box_.listIndex()));
}

COMBOBOXINFO ComboBoxWindow::parts() const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    GetComboBoxInfo(handle(), &info);
    return info;
}

RECT ComboBoxWindow::workArea() const { return workAreaOf(MonitorFromWindow(handle(), MONITOR_DEFAULTTONEAREST)); }

// The open list is as wide as its longest row needs, up to the width of the monitor.
void ComboBoxWindow::widenList() {
    LONG widest = 0;
    for (const std::string& row : box_.rows()) widest = std::max(widest, measured(font(), wide(row), 0, rowFormat).cx);
    const RECT work = workArea();
    const LONG needed = widest + GetSystemMetrics(SM_CXVSCROLL) + style().px(8);
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::min(needed, work.right - work.left)));
}

// The platform opens a list at the left edge of its box, even if it runs off the monitor.
void ComboBoxWindow::keepListOnMonitor() const {
    const HWND list = parts().hwndList;
    const RECT area = areaOf(list);
    const RECT work = workArea();
    const LONG left = std::max(work.left, work.right - (area.right - area.left));
    if (area.left <= left) return;
    SetWindowPos(list, nullptr, left, area.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

// One choice comes as several notifications. Their order depends on how the user chose. A posted message, which arrives
// behind the last, handles them together.
void ComboBoxWindow::notified(int code) {
    if (code == CBN_DROPDOWN) {
        raised_ = false;
        widenList();
        PostMessageW(handle(), listOpened, 0, 0);
    }
    if (code == CBN_SELENDOK) confirmed_ = true;
    if (code != CBN_SELENDOK && code != CBN_SELCHANGE && code != CBN_CLOSEUP) return;
    if (!settling_) settling_ = PostMessageW(handle(), settleChoices, 0, 0) != FALSE;
}

LRESULT ComboBoxWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case settleChoices: choicesSettled(); return 0;
        case listOpened: keepListOnMonitor(); return 0;
        default: return ControlWindow::message(message, wParam, lParam);
    }
}

void ComboBoxWindow::choicesSettled() {
    const auto row = static_cast<int>(send(CB_GETCURSEL));
    const bool again = confirmed_ && !raised_;  // the user chose the row that was current before
    settling_ = false;
    confirmed_ = false;
    if (row < 0 || (row == box_.listIndex() && !again)) return;
    raised_ = wantsEnter();
    screen().event([&] { box_.userChooses(row); });
}

bool ComboBoxWindow::wantsEnter() const { return send(CB_GETDROPPEDSTATE) != 0; }

MarkListWindow::MarkListWindow(FormWindow& owner, MarkList& list)
    : RowsWindow(owner, list,
                 {L"LISTBOX",
                  WS_TABSTOP | WS_GROUP | WS_VSCROLL | LBS_NOTIFY | LBS_MULTIPLESEL | LBS_OWNERDRAWFIXED |
                      LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
                  WS_EX_CLIENTEDGE},
                 {LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT}),
      list_(list) {
    send(LB_INITSTORAGE, list.rows().size(), 32);
}

void MarkListWindow::layout() {
    ControlWindow::layout();
    send(LB_SETITEMHEIGHT, 0, style().lineHeight(Look::body) + style().px(5));
}

void MarkListWindow::update() {
    const bool many = rowsDiffer();
    if (many) {
        send(WM_SETREDRAW, FALSE);
        showAllRows();
    }
    showMarks();
    if (many) {
        send(WM_SETREDRAW, TRUE);
        InvalidateRect(handle(), nullptr, TRUE);
    }
    ControlWindow::update();
}

void MarkListWindow::showAllRows() {
    std::vector<std::string> texts;
    for (const MarkList::Row& row : list_.rows()) texts.push_back(row.text);
    showRows(std::move(texts));
    // A refilled list is scrolled to its top.
    if (cleared_) {
        send(LB_SETCARETINDEX, 0, FALSE);
        send(LB_SETTOPINDEX, 0);
    }
    cleared_ = false;
}

std::vector<bool> MarkListWindow::shownMarks() const {
    std::vector<int> rows(static_cast<std::size_t>(std::max<LRESULT>(0, send(LB_GETSELCOUNT))));
    send(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    std::vector<bool> marks(list_.rows().size());
    for (const int row : rows) marks.at(static_cast<std::size_t>(row)) = true;
    return marks;
}

// When the program marks rows, the focused row and the scroll position stay the same.
void MarkListWindow::showMarks() {
    const std::vector<bool> shown = shownMarks();
    const auto caret = static_cast<WPARAM>(send(LB_GETCARETINDEX));
    const auto top = static_cast<WPARAM>(send(LB_GETTOPINDEX));
    const auto differs = [&](std::size_t row) { return list_.rows()[row].marked != shown[row]; };
    for (std::size_t row = 0; row < shown.size(); ++row) {
        if (!differs(row)) continue;
        const std::size_t first = row;
        const bool marked = list_.rows()[row].marked;
        while (row + 1 < shown.size() && differs(row + 1) && list_.rows()[row + 1].marked == marked) ++row;
        send(LB_SELITEMRANGE, marked, MAKELPARAM(first, row));
    }
    if (static_cast<WPARAM>(send(LB_GETCARETINDEX)) != caret) send(LB_SETCARETINDEX, caret, TRUE);
    if (static_cast<WPARAM>(send(LB_GETTOPINDEX)) != top) send(LB_SETTOPINDEX, top);
}

void MarkListWindow::rowsChanged(RowChange change) {
    if (change == RowChange::cleared) cleared_ = true;
    if (change != RowChange::marked) RowsWindow::rowsChanged(change);
}

void MarkListWindow::notified(int code) {
    if (code == LBN_SELCHANGE) takeMarks();
}

// Some versions of the platform do not notify of a row that is marked by keyboard.
LRESULT MarkListWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEMOVE) explainRow(lParam);
    const LRESULT result = ControlWindow::message(message, wParam, lParam);
    if ((message == WM_KEYDOWN || message == WM_CHAR) && wParam == VK_SPACE) takeMarks();
    return result;
}

// Shows the whole text of a clipped row in a tooltip while the pointer is on it.
void MarkListWindow::explainRow(LPARAM pointer) {
    const auto hit = send(LB_ITEMFROMPOINT, 0, pointer);
    const int row = HIWORD(hit) != 0 ? -1 : LOWORD(hit);
    if (row == explained_) return;
    explained_ = row;
    const bool known = row >= 0 && row < list_.count();
    const std::wstring text = known ? wide(list_.rows()[static_cast<std::size_t>(row)].text) : std::wstring();
    const int room = clientArea().right - style().px(textLeft);
    const bool cut = shortened(font(), text, room) != text;
    owner().tips().setAt(handle(), pointer, cut ? text : std::wstring());
}

void MarkListWindow::takeMarks() {
    const std::vector<bool> shown = shownMarks();
    for (std::size_t row = 0; row < std::min(shown.size(), list_.rows().size()); ++row) {
        const bool marked = shown[row];
        if (marked != list_.rows()[row].marked) screen().event([&] { list_.userMarks(static_cast<int>(row), marked); });
    }
}

void MarkListWindow::drawRow(const DRAWITEMSTRUCT& item) {
    const bool empty = item.itemID >= list_.rows().size();
    const Buffer buffer(item.hDC, item.rcItem);
    fill(buffer.dc(), item.rcItem, GetSysColor(COLOR_WINDOW));
    if (!empty) {
        const bool live = (item.itemState & ODS_DISABLED) == 0;
        const bool marked = (item.itemState & ODS_SELECTED) != 0;
        drawMark(buffer.dc(), item.rcItem.left + style().px(4), item.rcItem, marked, live, style());
        const std::wstring text = wide(list_.rows()[item.itemID].text);
        const RECT area{item.rcItem.left + style().px(textLeft), item.rcItem.top, item.rcItem.right,
                        item.rcItem.bottom};
        const Colour ink = live ? style().palette().text : style().palette().greyText;
        drawText(buffer.dc(), font(), ink, text, area, rowFormat | DT_VCENTER | DT_END_ELLIPSIS);
    }
    if ((item.itemState & ODS_FOCUS) == 0) return;
    SetTextColor(buffer.dc(), style().palette().text);
    DrawFocusRect(buffer.dc(), &item.rcItem);
}

}  // namespace vrix
