#pragma once

#include <string>
#include <vector>

#include "forms/inputs.h"
#include "makers/win32/control_window.h"

namespace vrix {

// A native list. Its rows are synchronized with the program's at the end of an event, however often the event changed
// them. Only the rows between the first and the last difference are replaced.
class RowsWindow : public ControlWindow {
public:
    void rowsChanged(RowChange /*change*/) override { rowsDiffer_ = true; }

protected:
    // The messages by which the native list inserts a row, deletes one, and deletes all.
    struct Messages {
        UINT insert;
        UINT remove;
        UINT clear;
    };
    RowsWindow(FormWindow& owner, Control& control, const WindowKind& kind, const Messages& messages)
        : ControlWindow(owner, control, kind), messages_(messages) {}

    bool rowsDiffer() const { return rowsDiffer_; }
    void showRows(std::vector<std::string> wanted);

private:
    Messages messages_;
    std::vector<std::string> shown_;
    bool rowsDiffer_ = true;  // the rows changed since they were last shown
};

class ComboBoxWindow final : public RowsWindow {
public:
    ComboBoxWindow(FormWindow& owner, ComboBox& box);
    void layout() override;
    void update() override;
    void notified(int code) override;
    bool wantsEnter() const override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT place() const override;
    void choicesSettled();
    void widenList();
    RECT workArea() const;
    void keepListOnMonitor() const;
    COMBOBOXINFO parts() const;

    ComboBox& box_;
    bool settling_ = false;   // the message settleChoices is posted
    bool confirmed_ = false;  // the user confirmed a row, perhaps the one that was current
    bool raised_ = false;     // the page was told of a choice since the list was opened
};

class MarkListWindow final : public RowsWindow {
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
    void showAllRows();
    void showMarks();
    std::vector<bool> shownMarks() const;
    MarkList& list_;
    bool cleared_ = false;  // all rows were removed since they were last shown
    int explained_ = -1;    // the row that the pointer is on
};

}  // namespace vrix
