#pragma once

#include "forms/buttons.h"
#include "forms/pictures.h"
#include "makers/win32/style.h"

namespace vrix {

// The pictures of the program, drawn by code. Each fills a rectangle of `dc` whole, on a background colour.

// Without `tile` the picture has no frame; with it, it is on a tile that shows whether it is hovered, pressed or
// focused.
enum class Tile { none, rest, hover, pressed };
void drawArt(HDC dc, const RECT& area, Art art, Tile tile, bool focused, const Palette& palette, Colour background);

// The program's mark, a ring of six sheets, which is its icon too; on a canvas of `artSize` units across and down.
constexpr double artSize = 48;
void drawRing(Canvas& canvas, const Palette& palette);

// The face of an image button without its caption.
struct FaceLook {
    ImageButton::Face face;
    bool isDefault;
    bool focused;
};
void drawFace(HDC dc, const RECT& area, const FaceLook& look, const Style& style, Colour background);

// The square in front of a row that can be marked, or of a check box, half way down the row; its side in units.
constexpr int markSide = 13;
void drawMark(HDC dc, LONG left, const RECT& row, bool marked, bool enabled, const Style& style);

}  // namespace vrix
