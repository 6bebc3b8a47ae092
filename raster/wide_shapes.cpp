// Shapes with a wide pen. The outline runs through the outermost pixels of the
// shape's frame, which is the box, right and bottom excluded; a pen that stays
// inside the box moves the frame inwards by half its width, on two sides rounded
// down and on the others rounded up, and a frame may thus end up crossed. The
// interior fills the frame. It is painted first, under the outline.
//
// Round outlines are strokes through every pixel of their arcs. Where a corner is
// 2 or less in either direction the shape is a rectangle. Corners far taller than
// wide are drawn with rows and columns exchanged, outline and interior alike: GDI
// would leave them without a tip, and fill it with rows that it never worked out.
//
// Edges further than kFarthestEdge from the surface's corner are taken to be there.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/block_guards.h"
#include "raster/quarter_arc.h"
#include "raster/rounded_box.h"
#include "raster/spans.h"
#include "raster/wide_pen.h"

namespace raster {
namespace {

// A box within these bounds has no side longer than an arc can be.
constexpr int kFarthestEdge = kLargestArc / 2;

Rect Ordered(const Rect& box) {
    const auto limited = [](int edge) { return std::clamp(edge, -kFarthestEdge, kFarthestEdge); };
    return {limited(std::min(box.left, box.right)), limited(std::min(box.top, box.bottom)),
            limited(std::max(box.left, box.right)), limited(std::max(box.top, box.bottom))};
}

/// The frame of an ordered box.
Rect PenFrame(const Pen& pen, const Rect& box) {
    if (pen.style != PenStyle::InsideFrame) return box;
    const int width = std::min(pen.width, kLargestArc);
    return {box.left + width / 2, box.top + width / 2, box.right - (width - 1) / 2,
            box.bottom - (width - 1) / 2};
}

Rect Exchanged(const Rect& box) {
    return {box.top, box.left, box.bottom, box.right};
}

/// The pixels of a round outline, a closed figure.
class RoundOutline {
public:
    /// Returns 0 when there is no memory for it.
    [[nodiscard]] int Trace(const Rect& frame, const CornerAxes& corners) {
        points_ = platform::WorkArray<Point>(4 * (static_cast<std::size_t>(corners.width) +
                                                  static_cast<std::size_t>(corners.height)));
        if (!points_) return 0;
        // From the middle of the upper right corner's right side to its top.
        for (QuarterArc arc(corners.width, corners.height); arc.Inset() < (corners.width + 1) / 2;
             arc.Advance()) {
            points_[count_++] = {frame.right - 1 - arc.Inset(),
                                 frame.top + corners.height - 1 - arc.Row()};
        }
        for (std::size_t i = count_; i-- > 0;) {
            points_[count_++] = {frame.left + frame.right - 1 - points_[i].x, points_[i].y};
        }
        for (std::size_t i = count_; i-- > 0;) {
            points_[count_++] = {points_[i].x, frame.top + frame.bottom - 1 - points_[i].y};
        }
        return 1;
    }

    [[nodiscard]] std::span<const Point> Points() const { return {points_.data(), count_}; }

private:
    platform::WorkArray<Point> points_;
    std::size_t count_ = 0;
};

}  // namespace

void RectangleWide(DrawingContext& context, const Rect& box) {
    const Rect ordered = Ordered(box);
    if (ordered.left == ordered.right || ordered.top == ordered.bottom) return;
    const Rect frame = PenFrame(context.pen, ordered);
    if (context.brush.paints) {
        PaintClippedBox(context.surface, frame.left, frame.top, frame.right, frame.bottom,
                        context.brush.color);
    }
    const Point corners[] = {{frame.left, frame.top},
                             {frame.right - 1, frame.top},
                             {frame.right - 1, frame.bottom - 1},
                             {frame.left, frame.bottom - 1}};
    StrokeWide(context, corners, Closing::Closed);
}

void RoundRectWide(DrawingContext& context, const Rect& box, int corner_width, int corner_height) {
    const Rect ordered = Ordered(box);
    if (ordered.left == ordered.right || ordered.top == ordered.bottom) return;
    const Rect frame = PenFrame(context.pen, ordered);
    const auto limited = [](int corner, int side) {
        return static_cast<int>(std::min(std::abs(std::int64_t{corner}), std::int64_t{side}));
    };
    const int width = limited(corner_width, frame.right - frame.left);
    const int height = limited(corner_height, frame.bottom - frame.top);
    if (width <= 2 || height <= 2) {
        RectangleWide(context, box);
        return;
    }
    const CornerAxes corners{width, height};
    const Axes axes = WalkReachesLastRow(width, height) ? Axes::AsTheyAre : Axes::Exchanged;
    RoundOutline outline;
    const int traced = axes == Axes::AsTheyAre ? outline.Trace(frame, corners)
                                               : outline.Trace(Exchanged(frame), {height, width});
    if (traced == 0) {
        context.failed = true;
        return;
    }
    if (context.brush.paints) {
        FillRoundedBox(context.surface, frame, corners, context.brush.color);
    }
    StrokeWide(context, outline.Points(), Closing::Closed, axes);
}

void EllipseWide(DrawingContext& context, const Rect& box) {
    const Rect ordered = Ordered(box);
    RoundRectWide(context, box, ordered.right - ordered.left, ordered.bottom - ordered.top);
}

}  // namespace raster
