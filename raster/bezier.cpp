// De Casteljau's subdivision in fixed point.
//
// Points carry four binary places. A curve is halved until it is flat enough or
// has been halved eight times in a row; every mean is rounded. It is flat enough
// when, seen along the longer direction of its chord, both controls lie between
// its ends, and across it they are no more than a pixel from where the chord
// rises to. That rise is coarse on purpose, since GDI's is: the chord's slope and
// the distances along it are whole numbers.
#include "raster/bezier.h"

#include <cstdint>
#include <cstdlib>

namespace raster {
namespace {

constexpr int kBinaryPlaces = 4;
constexpr std::int64_t kPixel = 1 << kBinaryPlaces;
constexpr int kMostHalvings = 8;

std::int64_t ToPixels(std::int64_t fixed) {
    return (fixed + kPixel / 2) >> kBinaryPlaces;
}

struct FixedPoint {
    std::int64_t x, y;
};

FixedPoint Mean(const FixedPoint& a, const FixedPoint& b) {
    return {(a.x + b.x + 1) / 2, (a.y + b.y + 1) / 2};
}

struct FixedCurve {
    FixedPoint points[4];
};

/// One control, relative to the start: along the chord's longer direction, and
/// across it.
struct Offset {
    std::int64_t along, across;
};

bool IsFlat(const FixedCurve& curve) {
    const FixedPoint& start = curve.points[0];
    const auto offset = [&](int index, bool shallow) -> Offset {
        const std::int64_t x = curve.points[index].x - start.x;
        const std::int64_t y = curve.points[index].y - start.y;
        return shallow ? Offset{x, y} : Offset{y, x};
    };
    const FixedPoint& end = curve.points[3];
    const bool shallow = std::llabs(end.y - start.y) <= std::llabs(end.x - start.x);
    const Offset chord = offset(3, shallow);
    const Offset controls[2] = {offset(1, shallow), offset(2, shallow)};
    for (const Offset& control : controls) {
        if (control.along < 0 ? control.along < chord.along : control.along > chord.along)
            return false;
    }
    const std::int64_t length = ToPixels(chord.along);
    if (length == 0) return true;
    const std::int64_t slope = chord.across / length;
    for (const Offset& control : controls) {
        if (std::llabs(control.across - slope * ToPixels(control.along)) > kPixel) return false;
    }
    return true;
}

/// Splits at the middle; `curve` keeps the first half.
FixedCurve SplitOff(FixedCurve& curve) {
    FixedPoint* const first = curve.points;
    FixedCurve second;
    const FixedPoint middle = Mean(first[1], first[2]);
    second.points[3] = first[3];
    second.points[2] = Mean(first[2], first[3]);
    second.points[1] = Mean(middle, second.points[2]);
    first[1] = Mean(first[0], first[1]);
    first[2] = Mean(first[1], middle);
    first[3] = Mean(first[2], second.points[1]);
    second.points[0] = first[3];
    return second;
}

Point* Flatten(FixedCurve curve, int halvings_left, Point* points) {
    if (halvings_left == 0 || IsFlat(curve)) {
        const FixedPoint& end = curve.points[3];
        *points = {static_cast<int>(ToPixels(end.x)), static_cast<int>(ToPixels(end.y))};
        return points + 1;
    }
    const FixedCurve second = SplitOff(curve);
    points = Flatten(curve, halvings_left - 1, points);
    return Flatten(second, halvings_left - 1, points);
}

FixedPoint ToFixed(const Point& point) {
    return {point.x * kPixel, point.y * kPixel};
}

}  // namespace

std::size_t FlattenCurve(const Curve& curve, Point* points) {
    const FixedCurve fixed{{ToFixed(curve.start), ToFixed(curve.start_control),
                            ToFixed(curve.end_control), ToFixed(curve.end)}};
    return static_cast<std::size_t>(Flatten(fixed, kMostHalvings, points) - points);
}

}  // namespace raster
