#include "makers/win32/pictures.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace vrix {

namespace {

constexpr int sheets = 6;  // of the set that is the program's mark

Colour sheetColour(const Palette& palette, int sheet) {
    if (palette.systemColoursOnly) return palette.text;
    return sheet == 0 ? RGB(226, 148, 40) : mixed(RGB(12, 62, 92), RGB(64, 158, 178), (sheet - 1) / 4.0);
}

// Some sheets of the set, fanned out, as a small mark.
void drawEmblem(Canvas& canvas, const Palette& palette) {
    const Point foot{24, 44};
    for (const auto& [sheet, angle] : {std::pair(1, -0.42), std::pair(3, 0.42), std::pair(0, 0.0)}) {
        canvas.polygon(turned({{12, 6}, {28, 6}, {36, 14}, {36, 42}, {12, 42}}, angle, foot), palette.face);
        canvas.polygon(turned({{14, 8}, {27, 8}, {34, 15}, {34, 40}, {14, 40}}, angle, foot),
                       sheetColour(palette, sheet));
    }
    for (const double line : {20.0, 27.0, 34.0}) canvas.stroke({{18, line}, {30, line}}, 2.6, palette.face);
}

void drawSheet(Canvas& canvas, const Palette& palette) {
    const Colour edge = palette.secondary;
    canvas.polygon({{12, 6}, {28, 6}, {36, 14}, {36, 42}, {12, 42}}, edge);
    canvas.polygon({{13.4, 7.4}, {27.4, 7.4}, {34.6, 14.6}, {34.6, 40.6}, {13.4, 40.6}}, palette.window);
    canvas.polygon({{27, 6}, {36, 15}, {27, 15}}, edge);
    for (const double line : {20.0, 25.0, 30.0, 35.0}) {
        canvas.stroke({{17.5, line}, {line < 30 ? 30.5 : 24.5, line}}, 1.6, mixed(edge, palette.window, 0.35));
    }
}

void drawBadge(Canvas& canvas, const Palette& palette, Colour colour, bool cross) {
    const Point middle{34, 35};
    canvas.circle(middle, 10.2, palette.window);
    canvas.circle(middle, 8.8, colour);
    const double angle = cross ? std::numbers::pi / 4 : 0;
    for (const double turn : {0.0, std::numbers::pi / 2}) {
        canvas.stroke(turned({{middle.x - 4.4, middle.y}, {middle.x + 4.4, middle.y}}, angle + turn, middle), 2.4,
                      palette.window);
    }
}

void drawPencil(Canvas& canvas, const Palette& palette) {
    const Point tip{22, 41};
    const auto along = [&](std::vector<Point> points) {
        for (Point& point : points) point = {tip.x + point.x, tip.y + point.y};
        return turned(std::move(points), -std::numbers::pi / 4, tip);
    };
    const auto part = [&](double from, double to, double half) {
        return along({{from, -half}, {to, -half}, {to, half}, {from, half}});
    };
    canvas.polygon(along({{-2.9, 0}, {6.6, -5.2}, {29, -5.2}, {29, 5.2}, {6.6, 5.2}}), palette.window);
    const Colour wood = palette.systemColoursOnly ? palette.text : RGB(226, 148, 40);
    canvas.polygon(along({{0, 0}, {7, -3.8}, {7, 3.8}}), mixed(wood, palette.text, 0.55));
    canvas.polygon(part(7, 21.5, 3.8), wood);
    canvas.polygon(part(23, 27.5, 3.8), palette.accent);
}

void drawTile(Canvas& canvas, Tile tile, bool focused, const Palette& palette) {
    const bool live = tile != Tile::rest;
    const double line = tile == Tile::pressed ? 2.4 : live ? 1.6 : 1;
    const double tint = tile == Tile::pressed ? 0.2 : live ? 0.1 : 0.03;
    canvas.box({0, 0}, {artSize, artSize}, 4, live ? palette.accent : palette.rule);
    const Colour fill = palette.systemColoursOnly ? palette.window : mixed(palette.window, palette.accent, tint);
    canvas.box({line, line}, {artSize - line, artSize - line}, 4 - line, fill);
    if (!focused) return;
    canvas.box({2.2, 2.2}, {artSize - 2.2, artSize - 2.2}, 2.4, palette.text);
    canvas.box({3.2, 3.2}, {artSize - 3.2, artSize - 3.2}, 1.6, fill);
}

}  // namespace

// A sheet of few pixels has no room for lines of text.
void drawRing(Canvas& canvas, const Palette& palette) {
    const Point middle{24, 24};
    for (int i = 0; i < sheets; ++i) {
        const double angle = 2 * std::numbers::pi * i / sheets;
        const auto place = [&](std::vector<Point> points) {
            return turned(turned(std::move(points), -0.42, {24, 10}), angle, middle);
        };
        canvas.polygon(place({{18.5, 2}, {26, 2}, {26, 6}, {30, 6}, {30, 18}, {18.5, 18}}), sheetColour(palette, i));
        if (canvas.width() < 32) continue;
        for (const double line : {9.5, 13.5}) canvas.stroke(place({{21, line}, {27.5, line}}), 1.4, palette.window);
    }
}

void drawArt(HDC dc, const RECT& area, Art art, Tile tile, bool focused, const Palette& palette, Colour background) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    Canvas canvas(width, height, std::min(width, height) / artSize, background);
    if (tile != Tile::none) drawTile(canvas, tile, focused, palette);
    if (tile == Tile::pressed) canvas.shift(1.5);
    if (art != Art::logo && art != Art::emblem) drawSheet(canvas, palette);
    switch (art) {
        case Art::logo: drawRing(canvas, palette); break;
        case Art::emblem: drawEmblem(canvas, palette); break;
        case Art::create: drawBadge(canvas, palette, palette.accent, false); break;
        case Art::edit: drawPencil(canvas, palette); break;
        case Art::remove: drawBadge(canvas, palette, palette.warning, true); break;
    }
    draw(dc, area.left, area.top, canvas);
}

void drawFace(HDC dc, const RECT& area, const FaceLook& look, const Style& style, Colour background) {
    using Face = ImageButton::Face;
    const Palette& palette = style.palette();
    const double width = (area.right - area.left) / style.scale();
    const double height = (area.bottom - area.top) / style.scale();
    const bool live = look.face == Face::hover || look.face == Face::pressed;
    const double line = live ? 2 : 1;
    const double radius = 4;

    Colour edge = look.isDefault ? palette.accent : palette.edge;
    if (live) edge = palette.accent;
    if (look.face == Face::disabled) edge = palette.systemColoursOnly ? palette.greyText : palette.rule;
    Colour fill = mixed(palette.window, palette.face, 0.3);
    if (look.face == Face::hover) fill = mixed(palette.window, palette.accent, 0.1);
    if (look.face == Face::pressed) fill = mixed(palette.window, palette.accent, 0.28);
    if (look.face == Face::disabled) fill = background;
    if (palette.systemColoursOnly) fill = palette.face;

    Canvas canvas(area.right - area.left, area.bottom - area.top, style.scale(), background);
    canvas.box({0, 0}, {width, height}, radius, edge);
    canvas.box({line, line}, {width - line, height - line}, radius - line, fill);
    if (look.face == Face::pressed) canvas.box({line, line}, {width - line, line + 2}, 0, mixed(fill, edge, 0.5));
    if (look.focused) {
        canvas.box({3, 3}, {width - 3, height - 3}, 2, palette.faceText);
        canvas.box({4, 4}, {width - 4, height - 4}, 1, fill);
    }
    draw(dc, area.left, area.top, canvas);
}

void drawMark(HDC dc, LONG left, const RECT& row, bool marked, bool enabled, const Style& style) {
    const Palette& palette = style.palette();
    const int side = style.px(markSide);
    Canvas canvas(side, side, static_cast<double>(side) / markSide, palette.window);
    const Colour ink = enabled ? palette.text : palette.greyText;
    const bool filled = marked && enabled && !palette.systemColoursOnly;
    Colour edge = filled ? palette.accent : palette.edge;
    Colour fill = filled ? palette.accent : palette.window;
    if (!enabled) {
        edge = palette.systemColoursOnly ? ink : palette.rule;
        fill = palette.systemColoursOnly ? palette.window : mixed(palette.window, palette.rule, 0.5);
    }
    canvas.box({0, 0}, {13, 13}, 2, edge);
    canvas.box({1, 1}, {12, 12}, 1, fill);
    if (marked) canvas.stroke({{3.2, 6.8}, {5.5, 9.2}, {9.9, 4}}, 1.5, filled ? palette.window : ink);
    draw(dc, left, (row.top + row.bottom - side) / 2, canvas);
}

}  // namespace vrix
