#pragma once

#include <vector>

#include "forms/inputs.h"
#include "makers/win32/control_window.h"

namespace vrix {

class TextBoxWindow final : public ControlWindow {
public:
    TextBoxWindow(FormWindow& owner, TextBox& box);
    void update() override;
    void notified(int code) override;
    const Control* enterPresses() const override { return box_.text().empty() ? nullptr : box_.enterPresses; }

private:
    bool enabled() const override;
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT place() const override;
    void show(const std::wstring& text);
    bool unfinished() const;

    TextBox& box_;
    bool composing_ = false;  // an input method is composing a character
};

// A check box or an option button.
class MarkWindow : public ControlWindow {
public:
    using ControlWindow::ControlWindow;

protected:
    // Shows the caption, shortened if it has no room, and the mark.
    void show(const std::wstring& caption, bool marked);
};

class CheckBoxWindow final : public MarkWindow {
public:
    CheckBoxWindow(FormWindow& owner, CheckBox& box);
    void update() override;
    void notified(int code) override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paintDisabled();
    CheckBox& box_;
};

class OptionButtonWindow final : public MarkWindow {
public:
    OptionButtonWindow(FormWindow& owner, OptionButton& button);
    void update() override;
    void notified(int code) override;
    const Control* standIn() const override;

private:
    std::vector<OptionButton*> group() const { return only<OptionButton>(button_.parent().children()); }
    const OptionButton* chosen() const;
    OptionButton& button_;
};

}  // namespace vrix
