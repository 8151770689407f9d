#pragma once

#include <memory>

#include "forms/form.h"
#include "makers/win32/native_window.h"
#include "makers/win32/style.h"

namespace vrix {

class FormWindow;

// A native top-level window. It shows pages, one at a time: to the user all pages are one window. Place, scale, the
// active and the minimised state are the frame's; everything else is the page's.
class FrameWindow final : public NativeWindow {
public:
    // Makes a frame, still hidden, at the place that its first page asks for.
    FrameWindow(Win32Screen& screen, const Form& first);
    ~FrameWindow() override { destroy(); }

    bool active() const { return GetActiveWindow() == handle(); }
    Form::Border border() const { return border_; }
    FormWindow* page() const { return page_; }  // null while the frame is hidden

    // Shows a page where the user left the frame, in place of the page before.
    void show(FormWindow& page);
    void hide();

    // The style for a page of that size: at the scale of the monitor, or the largest at which the page fits there.
    std::shared_ptr<const Style> styleFor(const Size& page) const;

private:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

    RECT workArea() const;
    SIZE sizeAt(int dpi) const;
    int fittingDpi(const Size& page) const;
    bool shownOpen() const;
    void fit();
    void placeAt(int left, int top, bool wholeOnMonitor);
    void dpiChanged(int dpi, const RECT& suggested);
    void surroundingsChanged(bool placesToo);
    void moved();
    void sized(bool minimised);
    void focusPage();
    void activated(bool active);
    bool systemCommand(WPARAM command);

    Form::Border border_;
    int dpi_;  // of the monitor
    // At this scale: the outer rectangle round an empty page. Asking the platform takes longer than all else that
    // places a frame.
    RECT edges_;
    FormWindow* page_ = nullptr;
    POINT topCentre_{};  // where the user wants the middle of the upper edge; pages differ in width
    bool dragged_ = false;
    bool minimised_ = false;
};

}  // namespace vrix
