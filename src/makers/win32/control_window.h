#pragma once

#include <memory>
#include <string>

#include "makers/win32/form_window.h"
#include "makers/win32/win32_screen.h"

namespace vrix {

// The native window of one control: what all kinds of them have in common.
class ControlWindow : public NativeWindow {
public:
    // The window is made a visible child; `kind` says what else it is.
    ControlWindow(FormWindow& owner, Control& control, const WindowKind& kind);

    // The object of a control's window; null for any other window.
    static ControlWindow* of(HWND handle) { return dynamic_cast<ControlWindow*>(NativeWindow::of(handle)); }

    const Control& control() const { return control_; }
    bool shown() const { return (styleBits() & WS_VISIBLE) != 0; }
    bool live() const { return (styleBits() & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE; }
    bool takesFocus() const { return live() && (styleBits() & WS_TABSTOP) != 0; }

    // Puts the control into the group of the one before it. The arrow keys move within a group.
    void joinGroup() { setStyle(WS_GROUP, false); }

    // Sets place and font to the scale of the form.
    virtual void layout();
    // Shows what may have changed in the control.
    virtual void update();
    // The rows of a list changed; the next update() shows them.
    virtual void rowsChanged(RowChange /*change*/) {}

    // The native control reports something, or wants a row drawn.
    virtual void notified(int /*code*/) {}
    virtual void drawRow(const DRAWITEMSTRUCT&) {}
    // Presses the control by keyboard, if it is of a kind that can be pressed.
    virtual void press() {}
    // The control itself handles Enter at present, as an open list does.
    virtual bool wantsEnter() const { return false; }
    // The button that Enter presses from here at present. Null: the page's own.
    virtual const Control* enterPresses() const { return nullptr; }
    // What takes the focus in place of this control where it cannot keep it. Null: nothing in particular.
    virtual const Control* standIn() const { return nullptr; }
    // The pointer moved: it is on the control now, or not.
    virtual void hovered(bool /*on*/) {}

protected:
    FormWindow& owner() const { return owner_; }
    const Style& style() const { return owner_.style(); }
    bool takes(UINT message) const override;
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual RECT place() const { return style().px(control_.bounds()); }
    virtual HFONT font() const { return style().font(Look::body); }
    virtual bool enabled() const;

    // A box for one line of text: as high as its font needs, in the middle of the control's place.
    RECT lineBox() const;
    void setText(const std::wstring& text);  // if it differs
    // Shows the whole text in a tooltip where it is clipped.
    void explain(const std::wstring& text, bool cut) const { owner_.tips().set(handle(), cut ? text : std::wstring()); }
    void setStyle(LONG_PTR bits, bool on);

private:
    FormWindow& owner_;
    Control& control_;
};

std::wstring windowText(HWND window);

// Makes the window of a control. Null for a control without one: a frame, or the label of a button.
std::unique_ptr<ControlWindow> makeControlWindow(FormWindow& owner, Control& control);

}  // namespace vrix
