// Bresenham's line, cut to the surface without a change to its pixels.
//
// Along the longer direction the line takes one pixel a step. After k steps of M
// it has moved across by k m / M, rounded to the nearest whole number, and a half
// goes to the smaller coordinate, whichever way the line runs. That is
//     floor((2 m k + M - bias) / 2M),  bias 1 towards greater coordinates, else 0,
// so the steps at which a line enters and leaves the surface follow by division,
// and no pixel outside is ever walked.
#include "raster/thin_lines.h"

#include <algorithm>
#include <cstdint>

#include "raster/spans.h"

namespace raster {
namespace {

// Products of two differences of coordinates, times 2, need 66 bits.
__extension__ typedef __int128 Wide;

/// One direction of a line.
struct Axis {
    std::int64_t start;
    std::int64_t length;  ///< how far the line goes, not negative
    int sign;             ///< 1 towards greater coordinates, else -1
    std::int64_t side;    ///< the surface's
};

Axis MakeAxis(int from, int to, int side) {
    const std::int64_t distance = std::int64_t{to} - from;
    return {from, distance < 0 ? -distance : distance, distance < 0 ? -1 : 1, side};
}

struct Steps {
    std::int64_t first, end;
};

/// How far the axis may be followed with the line still on the surface.
Steps StepsOnSurface(const Axis& axis) {
    if (axis.sign > 0) return {-axis.start, axis.side - axis.start};
    return {axis.start - axis.side + 1, axis.start + 1};
}

Wide CeilingDivide(Wide dividend, Wide divisor) {
    return dividend / divisor + (dividend % divisor > 0 ? 1 : 0);
}

/// The first step after which the line has moved across by `moved` or more.
std::int64_t StepReaching(std::int64_t moved, const Axis& along, const Axis& across, int bias) {
    if (moved <= 0) return 0;
    if (moved > across.length) return along.length;
    const Wide twice = Wide{2} * along.length * moved - along.length + bias;
    return static_cast<std::int64_t>(CeilingDivide(twice, Wide{2} * across.length));
}

template <class Put>
void WalkLine(const Axis& along, const Axis& across, Put put) {
    const int bias = across.sign > 0 ? 1 : 0;
    Steps steps = StepsOnSurface(along);
    const Steps moves = StepsOnSurface(across);
    steps.first =
        std::max({steps.first, std::int64_t{0}, StepReaching(moves.first, along, across, bias)});
    steps.end = std::min({steps.end, along.length, StepReaching(moves.end, along, across, bias)});
    if (moves.end <= 0 || steps.first >= steps.end) return;

    const Wide reached = Wide{2} * across.length * steps.first + along.length - bias;
    const Wide divisor = Wide{2} * along.length;
    auto place = static_cast<int>(along.start + along.sign * steps.first);
    auto beside =
        static_cast<int>(across.start + across.sign * static_cast<std::int64_t>(reached / divisor));
    auto rest = static_cast<std::int64_t>(reached % divisor);
    for (std::int64_t step = steps.first; step < steps.end; ++step) {
        put(place, beside);
        place += along.sign;
        rest += 2 * across.length;
        if (rest >= 2 * along.length) {
            rest -= 2 * along.length;
            beside += across.sign;
        }
    }
}

}  // namespace

void ThinLine(const Surface& surface, const Point& from, const Point& to, Color color) {
    const Axis x = MakeAxis(from.x, to.x, surface.width);
    const Axis y = MakeAxis(from.y, to.y, surface.height);
    if (y.length == 0) {
        const std::int64_t left = x.sign > 0 ? x.start : x.start - x.length + 1;
        PaintClippedSpan(surface, from.y, left, left + x.length, color);
    } else if (x.length >= y.length) {
        WalkLine(x, y, [&](int column, int row) { PaintPixel(surface, column, row, color); });
    } else {
        WalkLine(y, x, [&](int row, int column) { PaintPixel(surface, column, row, color); });
    }
}

void ThinLines(const Surface& surface, std::span<const Point> points, Color color) {
    for (std::size_t i = 1; i < points.size(); ++i)
        ThinLine(surface, points[i - 1], points[i], color);
}

}  // namespace raster
