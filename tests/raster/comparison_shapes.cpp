#include "tests/raster/comparison_shapes.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace comparison {
namespace {

using raster::PolygonFill;

constexpr Kind kKinds[] = {
    {"fillrect", Figure::FillRect, PenClass::None},
    {"rectangle-no-pen", Figure::Rectangle, PenClass::None},
    {"rectangle-pen-0", Figure::Rectangle, PenClass::Zero},
    {"rectangle-pen-1", Figure::Rectangle, PenClass::One},
    {"ellipse-no-pen", Figure::Ellipse, PenClass::None},
    {"ellipse-pen-0", Figure::Ellipse, PenClass::Zero},
    {"ellipse-pen-1", Figure::Ellipse, PenClass::One},
    {"roundrect-no-pen", Figure::RoundRect, PenClass::None},
    {"roundrect-pen-1", Figure::RoundRect, PenClass::One},
    {"polygon-alternate-no-pen", Figure::Polygon, PenClass::None},
    {"polygon-winding-no-pen", Figure::Polygon, PenClass::None, PolygonFill::Winding},
    {"polygon-alternate-pen-1", Figure::Polygon, PenClass::One},
    {"polygon-winding-pen-1", Figure::Polygon, PenClass::One, PolygonFill::Winding},
    {"line-0", Figure::Line, PenClass::Zero},
    {"line-1", Figure::Line, PenClass::One},
    {"polyline-0", Figure::Polyline, PenClass::Zero},
    {"polyline-1", Figure::Polyline, PenClass::One},
    {"bezier-0", Figure::Bezier, PenClass::Zero},
    {"bezier-1", Figure::Bezier, PenClass::One},
    {"line-wide", Figure::Line, PenClass::Wide},
    {"polyline-wide", Figure::Polyline, PenClass::Wide},
    {"bezier-wide", Figure::Bezier, PenClass::Wide},
    {"polygon-alternate-wide", Figure::Polygon, PenClass::Wide},
    {"polygon-winding-wide", Figure::Polygon, PenClass::Wide, PolygonFill::Winding},
    {"rectangle-wide", Figure::Rectangle, PenClass::Wide},
    {"ellipse-wide", Figure::Ellipse, PenClass::Wide},
    {"roundrect-wide", Figure::RoundRect, PenClass::Wide},
    {"rectangle-insideframe", Figure::Rectangle, PenClass::InsideFrame},
    {"ellipse-insideframe", Figure::Ellipse, PenClass::InsideFrame},
    {"roundrect-insideframe", Figure::RoundRect, PenClass::InsideFrame},
    {"polygon-insideframe", Figure::Polygon, PenClass::InsideFrame},
    {"polyline-insideframe", Figure::Polyline, PenClass::InsideFrame},
};

constexpr int kMaximumSide = 56;
constexpr int kLargeWidth = 301;
constexpr int kLargeHeight = 260;
constexpr int kUsualPenWidth = 20;
constexpr int kMaximumPenWidth = 120;

/// The SplitMix64 generator of Steele, Lea and Flood.
class Generator {
public:
    explicit Generator(std::uint64_t state) : state_(state) {}

    std::uint64_t Next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    /// `least` to `most`, both included.
    int Between(int least, int most) {
        const auto range = static_cast<std::uint64_t>(most - least) + 1;
        return least + static_cast<int>(Next() % range);
    }
    bool OneIn(int count) { return Between(1, count) == 1; }

private:
    std::uint64_t state_;
};

/// How far from the surface a shape's coordinates lie.
enum class Reach { Inside, Around, Far, VeryFar };

Reach PickReach(Generator& random) {
    const int pick = random.Between(0, 99);
    if (pick < 45) return Reach::Inside;
    if (pick < 85) return Reach::Around;
    return pick < 97 ? Reach::Far : Reach::VeryFar;
}

int PickCoordinate(Generator& random, int side, Reach reach) {
    switch (reach) {
        case Reach::Inside:
            return random.Between(0, side);
        case Reach::Around:
            return random.Between(-side / 2 - 3, side + side / 2 + 3);
        case Reach::Far:
            return random.Between(-400, 400);
        case Reach::VeryFar:
            return random.Between(-20000, 20000);
    }
    return 0;
}

raster::Rect PickBox(Generator& random, const Shape& shape) {
    const Reach reach = PickReach(random);
    raster::Rect box{
        PickCoordinate(random, shape.width, reach), PickCoordinate(random, shape.height, reach),
        PickCoordinate(random, shape.width, reach), PickCoordinate(random, shape.height, reach)};
    const int form = random.Between(0, 9);
    if (form < 6) {  // ordered; otherwise as it came
        if (box.left > box.right) std::swap(box.left, box.right);
        if (box.top > box.bottom) std::swap(box.top, box.bottom);
    }
    if (form == 5) box.right = box.left + random.Between(-1, 6);  // narrow
    if (form == 4) box.bottom = box.top + random.Between(-1, 6);  // flat
    return box;
}

void PickPoints(Generator& random, Shape& shape) {
    std::size_t count = 2;
    if (shape.figure == Figure::Polygon || shape.figure == Figure::Polyline) {
        count = static_cast<std::size_t>(random.Between(random.OneIn(20) ? 0 : 2, 13));
    } else if (shape.figure == Figure::Bezier) {
        count = 1 + 3 * static_cast<std::size_t>(random.Between(1, 3));
        if (random.OneIn(40)) count = static_cast<std::size_t>(random.Between(1, 12));
    }
    const Reach reach = PickReach(random);
    for (std::size_t i = 0; i < count; ++i) {
        shape.points[i] = {PickCoordinate(random, shape.width, reach),
                           PickCoordinate(random, shape.height, reach)};
        if (i > 0 && random.OneIn(8)) shape.points[i].x = shape.points[i - 1].x;
        if (i > 0 && random.OneIn(8)) shape.points[i].y = shape.points[i - 1].y;
    }
    if (count > 2 && random.OneIn(5)) shape.points[count - 1] = shape.points[0];
    shape.point_count = count;
}

int PickPenWidth(Generator& random, int least) {
    return random.Between(least, random.OneIn(6) ? kMaximumPenWidth : kUsualPenWidth);
}

raster::Pen PickPen(Generator& random, PenClass pen, raster::Color color) {
    switch (pen) {
        case PenClass::None:
            return raster::kNullPen;
        case PenClass::Zero:
            return raster::SolidPen(0, color);
        case PenClass::One:
            return raster::SolidPen(1, color);
        case PenClass::Wide:
            return raster::SolidPen(PickPenWidth(random, 2), color);
        case PenClass::InsideFrame:
            return raster::InsideFramePen(PickPenWidth(random, 0), color);
    }
    return raster::kNullPen;
}

}  // namespace

std::span<const Kind> Kinds() {
    return kKinds;
}

Shape MakeShape(const Kind& kind, std::uint64_t seed, std::uint64_t index) {
    // The kind's name is part of the seed, so that a new kind changes no other.
    std::uint64_t state = seed;
    for (const char* letter = kind.name; *letter != 0; ++letter)
        state = state * 131 + static_cast<unsigned char>(*letter);
    Generator random(Generator(state).Next() + index);

    Shape shape{};
    shape.figure = kind.figure;
    shape.fill = kind.fill;
    const bool large = random.OneIn(15);
    shape.width = large ? kLargeWidth : random.Between(1, kMaximumSide);
    shape.height = large ? kLargeHeight : random.Between(1, kMaximumSide);
    const auto color = static_cast<raster::Color>(random.Next() & 0xFFFFFF);
    shape.pen = PickPen(random, kind.pen, color);
    shape.brush = raster::SolidBrush(color ^ 0x80C0A0);
    if (kind.pen != PenClass::None && random.OneIn(4)) shape.brush = raster::kNullBrush;
    shape.box = PickBox(random, shape);
    shape.corner_width = random.Between(-5, large ? kLargeWidth : 40);
    shape.corner_height = random.Between(-5, large ? kLargeHeight : 40);
    if (random.OneIn(3)) shape.corner_height = shape.corner_width;
    if (random.OneIn(20)) shape.corner_width *= 100;
    PickPoints(random, shape);
    return shape;
}

std::string Describe(const Shape& shape) {
    static constexpr const char* kNames[] = {"FillRect", "Rectangle", "Ellipse",  "RoundRect",
                                             "Polygon",  "LineTo",    "Polyline", "PolyBezier"};
    char text[160];
    std::string call = kNames[static_cast<int>(shape.figure)];
    if (shape.figure <= Figure::RoundRect) {
        std::snprintf(text, sizeof text, "(%d, %d, %d, %d)", shape.box.left, shape.box.top,
                      shape.box.right, shape.box.bottom);
        call += text;
        if (shape.figure == Figure::RoundRect) {
            std::snprintf(text, sizeof text, " corners %d x %d", shape.corner_width,
                          shape.corner_height);
            call += text;
        }
    } else {
        for (const raster::Point& point : shape.Points()) {
            std::snprintf(text, sizeof text, " (%d, %d)", point.x, point.y);
            call += text;
        }
        if (shape.figure == Figure::Polygon)
            call += shape.fill == PolygonFill::Winding ? " winding" : " alternate";
    }
    static constexpr const char* kPens[] = {"solid", "no", "inside-frame"};
    std::snprintf(text, sizeof text, ", surface %d x %d, %s pen %d 0x%06X, %s", shape.width,
                  shape.height, kPens[static_cast<int>(shape.pen.style)], shape.pen.width,
                  static_cast<unsigned>(shape.pen.color),
                  shape.brush.paints ? "brush" : "no brush");
    return call + text;
}

}  // namespace comparison
