#pragma once

#include <vector>

#include "forms/inputs.h"
#include "makers/win32/control_window.h"
#include "makers/win32/shown_rows.h"

namespace vrix {

class ComboBoxWindow final : public ControlWindow {
public:
    ComboBoxWindow(FormWindow& owner, ComboBox& box);
    void layout() override;
    void update() override;
    void rowsChanged(RowChange change) override;
    void notified(int code) override;
    bool wantsEnter() const override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT place() const override;
    void choicesSettled();
    void widenList();
    RECT workArea() const;
    void keepListOnMonitor() const;
    int selectionWidth() const;

    ComboBox& box_;
    ShownRows shown_{{CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT}};
    bool rowsDiffer_ = true;  // the rows changed since they were last shown
    bool settling_ = false;   // the message settleChoices is posted
    bool confirmed_ = false;  // the user confirmed a row, perhaps the one that was current
    bool raised_ = false;     // the page was told of a choice since the list was opened
};

class MarkListWindow final : public ControlWindow {
public:
    MarkListWindow(FormWindow& owner, MarkList& list);
    void layout() override;
    void update() override;
    void rowsChanged(RowChange change) override;
    void notified(int code) override;
    void drawRow(const DRAWITEMSTRUCT& item) override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void takeMarks();
    void explainRow(LPARAM pointer);
    void showRows();
    void showMarks();
    std::vector<bool> shownMarks() const;
    MarkList& list_;
    ShownRows shown_{{LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT}};
    bool rowsDiffer_ = true;   // the rows changed since they were last shown
    bool cleared_ = false;     // all rows were removed in between
    int explained_ = -1;       // the row that the pointer is on
    bool marksDiffer_ = true;  // the program marked rows since they were last shown
};

}  // namespace vrix
