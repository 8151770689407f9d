#include "makers/win32/canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vrix {

namespace {

constexpr int linesPerRow = 4;

std::uint32_t swapped(Colour colour) {
    return ((colour & 0xFFu) << 16) | (colour & 0xFF00u) | ((colour >> 16) & 0xFFu);
}

void addArc(std::vector<Point>& points, Point centre, double radius, double from, double to) {
    constexpr int steps = 12;
    for (int step = 0; step <= steps; ++step) {
        const double angle = from + (to - from) * step / steps;
        points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
}

}  // namespace

Canvas::Canvas(int width, int height, double scale, Colour background)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      scale_(scale),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), swapped(background)),
      coverage_(static_cast<std::size_t>(width_) + 1) {}

void Canvas::polygon(const std::vector<Point>& corners, Colour colour) {
    std::vector<Point> shape = corners;
    double top = height_;
    double bottom = 0;
    for (Point& corner : shape) {
        corner = {(corner.x + shift_) * scale_, (corner.y + shift_) * scale_};
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    const int last = std::min(height_ - 1, static_cast<int>(std::ceil(bottom)));
    for (int row = std::max(0, static_cast<int>(std::floor(top))); row <= last; ++row) {
        for (int line = 0; line < linesPerRow; ++line) {
            findCrossings(shape, row + (line + 0.5) / linesPerRow);
            for (std::size_t i = 0; i + 1 < crossings_.size(); i += 2) cover(crossings_[i], crossings_[i + 1]);
        }
        blend(row, colour);
    }
}

// Where a horizontal line crosses the edges of a polygon, from left to right.
void Canvas::findCrossings(const std::vector<Point>& corners, double y) {
    crossings_.clear();
    const Point* from = &corners.back();
    for (const Point& to : corners) {
        if ((from->y <= y) != (to.y <= y)) {
            crossings_.push_back(from->x + (y - from->y) * (to.x - from->x) / (to.y - from->y));
        }
        from = &to;
    }
    std::sort(crossings_.begin(), crossings_.end());
}

void Canvas::cover(double from, double to) {
    from = std::max(from, 0.0);
    to = std::min(to, static_cast<double>(width_));
    if (from >= to) return;
    const auto first = static_cast<std::size_t>(from);
    const auto last = static_cast<std::size_t>(to);
    constexpr double whole = 1.0 / linesPerRow;
    for (std::size_t x = first; x < last; ++x) coverage_[x] += whole;
    coverage_[first] -= (from - static_cast<double>(first)) * whole;
    coverage_[last] += (to - static_cast<double>(last)) * whole;
}

// Blends the shape's colour into a row by its coverage, and clears the coverage for the next row.
void Canvas::blend(int row, Colour colour) {
    std::uint32_t* pixel = pixels_.data() + static_cast<std::ptrdiff_t>(row) * width_;
    const std::uint32_t whole = swapped(colour);
    for (int x = 0; x < width_; ++x, ++pixel) {
        const double share = std::exchange(coverage_[static_cast<std::size_t>(x)], 0.0);
        if (share > 0) *pixel = share < 1 ? mixed(*pixel, whole, share) : whole;
    }
}

void Canvas::box(Point from, Point to, double radius, Colour colour) {
    using std::numbers::pi;
    std::vector<Point> outline;
    addArc(outline, {to.x - radius, from.y + radius}, radius, -pi / 2, 0);
    addArc(outline, {to.x - radius, to.y - radius}, radius, 0, pi / 2);
    addArc(outline, {from.x + radius, to.y - radius}, radius, pi / 2, pi);
    addArc(outline, {from.x + radius, from.y + radius}, radius, pi, 3 * pi / 2);
    polygon(outline, colour);
}

void Canvas::circle(Point centre, double radius, Colour colour) {
    box({centre.x - radius, centre.y - radius}, {centre.x + radius, centre.y + radius}, radius, colour);
}

void Canvas::stroke(const std::vector<Point>& points, double width, Colour colour) {
    const double half = width / 2;
    for (std::size_t i = 0; i < points.size(); ++i) {
        circle(points[i], half, colour);
        if (i == 0) continue;
        const Point a = points[i - 1];
        const Point b = points[i];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const Point side{(b.y - a.y) / length * half, (a.x - b.x) / length * half};
        polygon({{a.x + side.x, a.y + side.y},
                 {b.x + side.x, b.y + side.y},
                 {b.x - side.x, b.y - side.y},
                 {a.x - side.x, a.y - side.y}},
                colour);
    }
}

std::vector<Point> turned(std::vector<Point> points, double angle, Point centre) {
    for (Point& point : points) {
        const Point away{point.x - centre.x, point.y - centre.y};
        point = {centre.x + away.x * std::cos(angle) - away.y * std::sin(angle),
                 centre.y + away.x * std::sin(angle) + away.y * std::cos(angle)};
    }
    return points;
}

Colour mixed(Colour from, Colour to, double share) {
    Colour result = 0;
    for (const int shift : {0, 8, 16}) {
        const double a = (from >> shift) & 0xFFu;
        const double b = (to >> shift) & 0xFFu;
        result |= static_cast<Colour>(a + (b - a) * share + 0.5) << shift;
    }
    return result;
}

}  // namespace vrix
