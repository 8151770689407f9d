#pragma once

#include <vector>

#include "forms/inputs.h"
#include "makers/win32/control_window.h"
#include "makers/win32/shown_rows.h"

namespace vrix {

class TextBoxWindow final : public ControlWindow {
public:
    TextBoxWindow(FormWindow& owner, TextBox& box);
    void update() override;
    void notified(int code) override;

private:
    RECT place() const override;
    TextBox& box_;
};

// A mark with a caption behind it.
class MarkWindow : public ControlWindow {
public:
    using ControlWindow::ControlWindow;

protected:
    // Shows a caption, be it longer than its room.
    void showCaption(const std::string& caption);
};

class CheckBoxWindow final : public MarkWindow {
public:
    CheckBoxWindow(FormWindow& owner, CheckBox& box);
    void update() override;
    void notified(int code) override;

private:
    CheckBox& box_;
};

class OptionButtonWindow final : public MarkWindow {
public:
    OptionButtonWindow(FormWindow& owner, OptionButton& button);
    void update() override;
    void notified(int code) override;

private:
    void placeTabStop();
    OptionButton& button_;
};

class ComboBoxWindow final : public ControlWindow {
public:
    ComboBoxWindow(FormWindow& owner, ComboBox& box);
    void layout() override;
    void update() override;
    void rowsChanged(RowChange change, int row) override;
    void notified(int code) override;
    bool wantsEnter() const override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT place() const override;
    void showRows();
    void choicesSettled();

    ComboBox& box_;
    ShownRows shown_;
    bool rowsDiffer_ = true;  // the rows changed since the current one was last shown
    bool settling_ = false;   // a look at the user's choice is on its way
    bool confirmed_ = false;  // the user confirmed the current row, be it another one or not
    bool raised_ = false;     // a choice was raised since the list was opened
};

class MarkListWindow final : public ControlWindow {
public:
    MarkListWindow(FormWindow& owner, MarkList& list);
    void layout() override;
    void update() override;
    void rowsChanged(RowChange change, int row) override;
    void notified(int code) override;
    void drawRow(const DRAWITEMSTRUCT& item) override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void takeMarks();
    void showRows();
    void showMarks();
    std::vector<bool> shownMarks() const;
    MarkList& list_;
    ShownRows shown_;
    bool rowsDiffer_ = true;   // rows came or went since they were last shown
    bool cleared_ = false;     // all of them went in between
    bool marksDiffer_ = true;  // the program marked rows since they were last shown
};

}  // namespace vrix
