#pragma once

#include "forms/buttons.h"
#include "forms/label.h"
#include "forms/pictures.h"
#include "makers/win32/control_window.h"

namespace vrix {

// A control that the program draws itself. A screen reader takes the role from its native class, the name from its
// text.
class PaintedWindow : public ControlWindow {
public:
    using ControlWindow::ControlWindow;
    void update() override;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual void paint(HDC dc, const RECT& area) = 0;
    // Draws a caption of the control. Its access key is underlined while access keys are shown.
    void drawCaption(HDC dc, Colour colour, const std::string& caption, const RECT& area, UINT format) const;
};

class LabelWindow final : public PaintedWindow {
public:
    LabelWindow(FormWindow& owner, Label& label);
    void update() override;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC dc, const RECT& area) override;
    void paintSection(HDC dc, const RECT& area);
    Colour colour() const;
    bool oneLine() const;
    HFONT font() const override { return style().font(label_.look()); }
    Label& label_;
};

// A painted control that the mouse presses. The press captures the mouse until its release, wherever that is. By
// keyboard, Space or Enter presses and releases it.
class PressableWindow : public PaintedWindow {
public:
    using PaintedWindow::PaintedWindow;
    void notified(int code) override;
    void press() override;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual void pressed(POINT at) = 0;
    virtual void released(POINT at) = 0;
    virtual void moved(POINT /*at*/, bool /*buttonHeld*/) {}
    bool captured() const { return captured_; }

private:
    bool mouseMessage(UINT message, WPARAM wParam, POINT at);
    bool captured_ = false;
};

class PictureWindow final : public PressableWindow {
public:
    PictureWindow(FormWindow& owner, Picture& picture);

private:
    void paint(HDC dc, const RECT& area) override;
    void pressed(POINT) override {}
    void released(POINT at) override;
    Picture& picture_;
};

class TaskPictureWindow final : public PressableWindow {
public:
    TaskPictureWindow(FormWindow& owner, TaskPicture& picture);
    void hovered(bool on) override;

private:
    void paint(HDC dc, const RECT& area) override;
    void pressed(POINT at) override;
    void released(POINT at) override;
    TaskPicture& picture_;
    bool hover_ = false;
};

class ImageButtonWindow final : public PressableWindow {
public:
    ImageButtonWindow(FormWindow& owner, ImageButton& button);
    void update() override;
    void hovered(bool on) override;
    const Control* standIn() const override { return button_.counterpart; }

private:
    void paint(HDC dc, const RECT& area) override;
    void pressed(POINT at) override;
    void released(POINT at) override;
    void moved(POINT at, bool buttonHeld) override;
    bool enabled() const override;
    RECT captionArea() const;  // the button's label; the rest is its picture
    bool isOnLabel(POINT at) const;

    ImageButton& button_;
    bool onLabel_ = false;  // the press that captured the mouse was on the label
};

}  // namespace vrix
