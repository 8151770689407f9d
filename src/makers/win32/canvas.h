#pragma once

#include <cstdint>
#include <vector>

namespace vrix {

using Colour = std::uint32_t;  // 0x00bbggrr, as the platform has it

struct Point {
    double x;
    double y;
};

// A small picture made of shapes, antialiased at any scale. Shapes have units of their own; `scale` is the number of
// pixels to a unit.
class Canvas {
public:
    Canvas(int width, int height, double scale, Colour background);

    // Puts the shapes that follow so far from the corner, right and down.
    void shift(double units) { shift_ = units; }

    void polygon(const std::vector<Point>& corners, Colour colour);
    // A rectangle with round corners.
    void box(Point from, Point to, double radius, Colour colour);
    void circle(Point centre, double radius, Colour colour);
    // A line through the points, with round ends.
    void stroke(const std::vector<Point>& points, double width, Colour colour);

    int width() const { return width_; }
    int height() const { return height_; }
    // Rows from top to bottom, each pixel 0x00rrggbb.
    const std::vector<std::uint32_t>& pixels() const { return pixels_; }

private:
    void findCrossings(const std::vector<Point>& corners, double y);
    void cover(double from, double to);
    void blend(int row, Colour colour);
    int width_;
    int height_;
    double scale_;
    double shift_ = 0;
    std::vector<std::uint32_t> pixels_;
    std::vector<double> crossings_;  // of the current scan line with the edges of a shape
    std::vector<double> coverage_;   // of the current row, 0 to 1 for each pixel, and one pixel behind the row
};

// The points rotated by `angle` radians about a centre.
std::vector<Point> turned(std::vector<Point> points, double angle, Point centre);

// The colour that lies `share` of the way from one colour to another.
Colour mixed(Colour from, Colour to, double share);

}  // namespace vrix
