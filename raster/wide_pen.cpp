// How a wide pen covers pixels, after GDI.
//
// A stroke is the union of
// - a disc at every point: the filled ellipse of the pen's width in both
//   directions, its first column and row half a pen (rounded down) before the
//   point;
// - for every two neighbouring points a quadrilateral. A vertical or horizontal
//   one is the rectangle of the pen's width that starts half a pen (rounded down)
//   before the line and ends short of the last point's pixel. Any other has its
//   corners across the line from its ends, rounded to whole pixels, and covers
//   in each row the columns from the ceiling of its left edge up to, not
//   including, the ceiling of its right edge.
//
// One solid colour makes order and overlap immaterial. A few points are painted
// as they come. Outlines of ellipses have a point a pixel, whose discs overlap
// nearly everywhere; they are collected in a bitmap over the stroke's box first,
// so that each pixel is painted once.
#include "raster/wide_pen.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "platform/block_guards.h"
#include "raster/quarter_arc.h"
#include "raster/spans.h"

namespace raster {
namespace {

// Beyond these nothing of a picture's size is told apart; within them all
// products fit 64 bits.
constexpr int kFarthestPoint = 1 << 29;
constexpr int kWidestPen = kLargestArc;

// A stroke of more points than this is collected in a bitmap.
constexpr std::size_t kMostPointsPaintedAtOnce = 16;

Point Clamped(const Point& point) {
    return {std::clamp(point.x, -kFarthestPoint, kFarthestPoint),
            std::clamp(point.y, -kFarthestPoint, kFarthestPoint)};
}

/// Takes the spans of a stroke and paints their union. Owns its bitmap.
class Coverage {
public:
    /// `box`: where spans are kept, within the surface (its axes as `axes` says).
    Coverage(const DrawingContext& context, const Rect& box, Axes axes)
        : surface_(context.surface), color_(context.pen.color), box_(box), axes_(axes) {}

    /// Collects from here on; false when there is no memory for it.
    [[nodiscard]] bool Collect() {
        words_a_row_ = static_cast<std::size_t>(box_.right - box_.left + 63) / 64;
        bits_ = platform::WorkArray<std::uint64_t>(
            words_a_row_ * static_cast<std::size_t>(box_.bottom - box_.top));
        return static_cast<bool>(bits_);
    }

    [[nodiscard]] const Rect& Box() const { return box_; }

    /// Covers the columns from `left` up to `right` in row `y`. Requires: the row
    /// is in the box.
    void Add(int y, std::int64_t left, std::int64_t right) {
        const int first = static_cast<int>(std::max<std::int64_t>(left, box_.left));
        const int end = static_cast<int>(std::min<std::int64_t>(right, box_.right));
        if (first >= end) return;
        if (bits_) {
            SetBits(y, first - box_.left, end - box_.left);
        } else {
            Paint(y, first, end);
        }
    }

    /// Paints what was collected.
    void Flush() {
        if (!bits_) return;
        for (int y = box_.top; y < box_.bottom; ++y)
            FlushRow(y);
    }

private:
    std::uint64_t* Row(int y) {
        return bits_.data() + static_cast<std::size_t>(y - box_.top) * words_a_row_;
    }

    void SetBits(int y, int first, int end) {
        std::uint64_t* row = Row(y);
        const int last_word = (end - 1) / 64;
        const std::uint64_t from_first = ~std::uint64_t{0} << (first % 64);
        const std::uint64_t to_end = ~std::uint64_t{0} >> (63 - (end - 1) % 64);
        int word = first / 64;
        if (word == last_word) {
            row[word] |= from_first & to_end;
            return;
        }
        row[word] |= from_first;
        for (++word; word < last_word; ++word)
            row[word] = ~std::uint64_t{0};
        row[last_word] |= to_end;
    }

    void FlushRow(int y) {
        const std::uint64_t* row = Row(y);
        for (std::size_t word = 0; word < words_a_row_; ++word) {
            const int column = box_.left + static_cast<int>(word) * 64;
            std::uint64_t left = row[word];
            while (left != 0) {
                const int first = std::countr_zero(left);
                const int length = std::countr_one(left >> first);
                Paint(y, column + first, column + first + length);
                if (first + length == 64) break;
                left &= ~std::uint64_t{0} << (first + length);
            }
        }
    }

    void Paint(int y, int first, int end) {
        if (axes_ == Axes::AsTheyAre) {
            PaintSpan(surface_, y, first, end, color_);
        } else {
            PaintClippedBox(surface_, y, first, y + 1, end, color_);
        }
    }

    Surface surface_;
    Color color_;
    Rect box_;
    Axes axes_;
    std::size_t words_a_row_ = 0;
    platform::WorkArray<std::uint64_t> bits_;
};

/// The pen's disc, walked anew for every point: a walk costs about as much as the
/// rows that it covers. They are symmetric about the middle.
void AddDisc(Coverage& coverage, const Point& center, int width) {
    const Rect& box = coverage.Box();
    const std::int64_t left = std::int64_t{center.x} - width / 2;
    const std::int64_t top = std::int64_t{center.y} - width / 2;
    if (top >= box.bottom || top + width <= box.top) return;
    if (left >= box.right || left + width <= box.left) return;

    int covered_row = width / 2 - 1;
    for (QuarterArc arc(width, width); !arc.IsPastMiddle(); arc.Advance()) {
        if (arc.Row() == covered_row) continue;
        covered_row = arc.Row();
        const std::int64_t below = top + covered_row;
        const std::int64_t above = top + width - 1 - covered_row;
        const std::int64_t right = left + width - arc.Inset();
        for (const std::int64_t y : {below, above}) {
            if (y >= box.top && y < box.bottom) {
                coverage.Add(static_cast<int>(y), left + arc.Inset(), right);
            }
        }
    }
}

void AddRectangle(Coverage& coverage, std::int64_t left, std::int64_t top, std::int64_t right,
                  std::int64_t bottom) {
    const Rect& box = coverage.Box();
    const int first = static_cast<int>(std::max<std::int64_t>(top, box.top));
    const int end = static_cast<int>(std::min<std::int64_t>(bottom, box.bottom));
    for (int y = first; y < end; ++y)
        coverage.Add(y, left, right);
}

/// Where an edge crosses the rows: the ceiling of its exact column, row by row.
class EdgeWalk {
public:
    /// From row `y` on. Requires: the edge runs from `upper` down to `lower`, and
    /// row `y` is between them.
    EdgeWalk(const Point& upper, const Point& lower, int y)
        : height_(std::int64_t{lower.y} - upper.y) {
        const std::int64_t run = std::int64_t{lower.x} - upper.x;
        step_ = FloorDivide(run, height_);
        step_rest_ = run - step_ * height_;
        const std::int64_t travelled = (std::int64_t{y} - upper.y) * run;
        const std::int64_t whole = FloorDivide(travelled, height_);
        column_ = upper.x + whole;
        rest_ = travelled - whole * height_;
    }

    [[nodiscard]] std::int64_t Column() const { return column_ + (rest_ > 0 ? 1 : 0); }

    void NextRow() {
        column_ += step_;
        rest_ += step_rest_;
        if (rest_ >= height_) {
            rest_ -= height_;
            ++column_;
        }
    }

private:
    static std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
        return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
    }

    std::int64_t height_;
    std::int64_t step_, step_rest_;
    std::int64_t column_, rest_;
};

/// A parallelogram with corners in order. Between two neighbouring heights of its
/// corners exactly two edges cross the rows.
void AddParallelogram(Coverage& coverage, const Point (&corners)[4]) {
    int heights[4] = {corners[0].y, corners[1].y, corners[2].y, corners[3].y};
    std::sort(std::begin(heights), std::end(heights));
    const Rect& box = coverage.Box();
    for (int band = 0; band < 3; ++band) {
        const int first = std::max(heights[band], box.top);
        const int end = std::min(heights[band + 1], box.bottom);
        if (first >= end) continue;
        const Point* edges[2][2] = {};
        int count = 0;
        for (int i = 0; i < 4 && count < 2; ++i) {
            const Point* upper = &corners[i];
            const Point* lower = &corners[(i + 1) % 4];
            if (upper->y > lower->y) std::swap(upper, lower);
            if (upper->y > first || lower->y <= first) continue;
            edges[count][0] = upper;
            edges[count][1] = lower;
            ++count;
        }
        if (count < 2) continue;
        EdgeWalk one(*edges[0][0], *edges[0][1], first);
        EdgeWalk other(*edges[1][0], *edges[1][1], first);
        for (int y = first; y < end; ++y) {
            coverage.Add(y, std::min(one.Column(), other.Column()),
                         std::max(one.Column(), other.Column()));
            one.NextRow();
            other.NextRow();
        }
    }
}

int Rounded(double positive) {
    return static_cast<int>(positive + 0.5);
}

/// Each end has a corner to its left and one to its right, half a pen away at a
/// right angle to the line. In both directions the left one's distance is half
/// the pen's extent rounded, the right one's half of one more than that extent,
/// rounded: the sum is the pen's whole width, as for upright lines.
void AddSlanted(Coverage& coverage, const Point& start, const Point& end, int width) {
    const double run = static_cast<double>(end.x) - start.x;
    const double fall = static_cast<double>(end.y) - start.y;
    const double length = std::sqrt(run * run + fall * fall);
    const double extent_x = width * std::fabs(fall) / length;
    const double extent_y = width * std::fabs(run) / length;
    // The left corner is below the end where the line falls rightwards.
    const int side = (run > 0) == (fall > 0) ? 1 : -1;
    const Point left{-Rounded(extent_x / 2), side * Rounded(extent_y / 2)};
    const Point right{Rounded((extent_x + 1) / 2), -side * Rounded((extent_y + 1) / 2)};
    AddParallelogram(coverage, {{start.x + left.x, start.y + left.y},
                                {start.x + right.x, start.y + right.y},
                                {end.x + right.x, end.y + right.y},
                                {end.x + left.x, end.y + left.y}});
}

void AddSegment(Coverage& coverage, const Point& start, const Point& end, int width) {
    if (start.x == end.x) {
        const std::int64_t left = std::int64_t{start.x} - width / 2;
        AddRectangle(coverage, left, std::min(start.y, end.y), left + width,
                     std::max(start.y, end.y));
    } else if (start.y == end.y) {
        const std::int64_t top = std::int64_t{start.y} - width / 2;
        AddRectangle(coverage, std::min(start.x, end.x), top, std::max(start.x, end.x),
                     top + width);
    } else {
        AddSlanted(coverage, start, end, width);
    }
}

/// The part of the surface that the stroke can reach.
Rect StrokeBox(const Surface& surface, std::span<const Point> points, int width, Axes axes) {
    Point least = Clamped(points[0]);
    Point greatest = least;
    for (const Point& point : points) {
        const Point placed = Clamped(point);
        least = {std::min(least.x, placed.x), std::min(least.y, placed.y)};
        greatest = {std::max(greatest.x, placed.x), std::max(greatest.y, placed.y)};
    }
    const int reach = width / 2 + 2;
    Point end{surface.width, surface.height};
    if (axes == Axes::Exchanged) std::swap(end.x, end.y);
    return {std::max(least.x - reach, 0), std::max(least.y - reach, 0),
            std::min(greatest.x + reach, end.x), std::min(greatest.y + reach, end.y)};
}

}  // namespace

void StrokeWide(DrawingContext& context, std::span<const Point> points, Closing closing,
                Axes axes) {
    if (points.size() < 2) return;
    const int width = std::min(context.pen.width, kWidestPen);
    const Rect box = StrokeBox(context.surface, points, width, axes);
    if (box.left >= box.right || box.top >= box.bottom) return;
    Coverage coverage(context, box, axes);
    if (points.size() > kMostPointsPaintedAtOnce && !coverage.Collect()) {
        context.failed = true;
        return;
    }
    Point previous = Clamped(points[0]);
    AddDisc(coverage, previous, width);
    for (const Point& point : points.subspan(1)) {
        const Point next = Clamped(point);
        if (next.x == previous.x && next.y == previous.y) continue;
        AddSegment(coverage, previous, next, width);
        AddDisc(coverage, next, width);
        previous = next;
    }
    if (closing == Closing::Closed) AddSegment(coverage, previous, Clamped(points[0]), width);
    coverage.Flush();
}

}  // namespace raster
