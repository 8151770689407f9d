#pragma once

#include <windows.h>

#include "forms/label.h"
#include "makers/win32/canvas.h"
#include "makers/win32/gdi.h"

namespace vrix {

// The colours of a window. With high contrast, or on a dark background, all are colours of the system.
struct Palette {
    bool systemColoursOnly;
    Colour window;  // behind the page
    Colour text;
    Colour face;  // behind the row of buttons
    Colour faceText;
    Colour greyText;
    Colour edge;       // round what can be pressed or marked
    Colour rule;       // thin lines that divide the page
    Colour heading;    // of the task
    Colour secondary;  // text that matters less
    Colour accent;     // what is hovered, pressed, marked or created
    Colour warning;    // what deletes
};

Palette currentPalette();

// Dots per inch: of the system, and of the monitor that a window is on.
int systemDpi();
int dpiOf(HWND window);

// Fonts, colours and sizes of one window at the scale of its monitor. A unit is 1/96 inch.
class Style {
public:
    explicit Style(int dpi);

    int px(int units) const { return MulDiv(units, dpi_, 96); }
    RECT px(const Bounds& bounds) const;
    double scale() const { return dpi_ / 96.0; }
    int dpi() const { return dpi_; }

    HFONT font(Look look) const;
    // The height of a box for one line of text with its border.
    int lineBoxHeight() const { return lineBoxHeight_; }
    const Palette& palette() const { return palette_; }

private:
    int dpi_;
    Owned<HFONT> body_;
    Owned<HFONT> heading_;
    Owned<HFONT> subheading_;
    Owned<HFONT> section_;
    Owned<HFONT> product_;
    int lineBoxHeight_;
    Palette palette_;
};

// Draws a canvas with its corner at a point.
void draw(HDC dc, int left, int top, const Canvas& canvas);

// The height that a font's line takes, and the size that a text takes in a width.
int lineHeight(HFONT font);
SIZE measured(HDC dc, const std::string& text, int width, UINT format);

// A line of text as it fits into a width: a longer one ends in "...".
std::string shortened(HFONT font, const std::string& text, int width);

}  // namespace vrix
