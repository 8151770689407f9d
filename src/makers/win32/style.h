#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

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

    bool operator==(const Palette&) const = default;
};

// What the user has set for all programs.
struct Preferences {
    LOGFONTW font;  // of texts, in 1/96 inch and at a text size of 100 per cent
    int textScale;  // the text size, in per cent: 100 or more
    Palette palette;

    bool operator==(const Preferences& other) const;
};

Preferences currentPreferences();

// Dots per inch: of the system, and of the monitor that a window is on.
int systemDpi();
int dpiOf(HWND window);

// Fonts, colours and sizes of the pages at one scale. A unit is 1/96 inch.
class Style {
public:
    explicit Style(int dpi, const Preferences& preferences = currentPreferences());

    int px(int units) const { return MulDiv(units, dpi_, 96); }
    RECT px(const Bounds& bounds) const;
    double scale() const { return dpi_ / 96.0; }
    int dpi() const { return dpi_; }

    HFONT font(Look look) const { return typeface(look).font.get(); }
    // The height that a line of text takes.
    int lineHeight(Look look) const { return typeface(look).lineHeight; }
    // The height of a box for one line of text with its border.
    int lineBoxHeight() const { return lineBoxHeight_; }
    const Palette& palette() const { return palette_; }

private:
    struct Typeface {
        Owned<HFONT> font;
        int lineHeight;
    };
    const Typeface& typeface(Look look) const { return typefaces_.at(static_cast<std::size_t>(look)); }

    int dpi_;
    std::vector<Typeface> typefaces_;  // in the order of the looks
    int lineBoxHeight_;
    Palette palette_;
};

// The styles of all pages. A cache by scale: a page whose style is not the one for its scale must be laid out again.
class Styles {
public:
    std::shared_ptr<const Style> at(int dpi);
    // The scale of a page on a monitor. A larger text size makes the whole page larger, as a finer monitor does.
    int withTextScale(int dpi) const { return MulDiv(dpi, preferences_.textScale, 100); }

    // Reads the preferences and clears the cache; refresh() does so only if they have changed.
    void renew();
    void refresh();

private:
    Preferences preferences_ = currentPreferences();
    std::map<int, std::shared_ptr<const Style>> made_;  // by scale
};

// Draws a canvas with its corner at a point.
void draw(HDC dc, int left, int top, const Canvas& canvas);

// The text with every "&" escaped as "&&", for a native control or drawing that takes "&" as the mark of an access key,
// and with "&" in front of the letter of its own access key, if it has one.
std::wstring withMark(const std::wstring& text, char accessKey = '\0');

// Draws a text with a transparent background.
void drawText(HDC dc, HFONT font, Colour colour, const std::wstring& text, RECT area, UINT format);

// The size that a text takes in a width.
SIZE measured(HFONT font, const std::wstring& text, int width, UINT format);

// A line of text that fits a width: a longer one ends in "...".
std::wstring shortened(HFONT font, const std::wstring& text, int width);

}  // namespace vrix
