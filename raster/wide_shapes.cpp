// Shapes with a wide pen. The outline runs through the outermost pixels of the
// shape's frame, which is the box, right and bottom excluded; a pen that stays
// inside the box moves the frame inwards by half its width, on two sides rounded
// down and on the others rounded up, and a frame may thus end up crossed. The
// interior fills the frame. It is painted first, under the outline.
//
// Round outlines are strokes through every pixel of their arcs. Where a corner is
// 2 or less in either direction the shape is a rectangle.
#include <algorithm>
#include <cstdint>

#include "platform/block_guards.h"
#include "raster/quarter_arc.h"
#include "raster/spans.h"
#include "raster/wide_pen.h"

namespace raster {
namespace {

// Corners of a box within these bounds are no larger than an arc can be.
constexpr int kFarthestEdge = kLargestArc / 2;

Rect Ordered(const Rect& box) {
    const auto near = [](int edge) { return std::clamp(edge, -kFarthestEdge, kFarthestEdge); };
    return {near(std::min(box.left, box.right)), near(std::min(box.top, box.bottom)),
            near(std::max(box.left, box.right)), near(std::max(box.top, box.bottom))};
}

/// The frame of an ordered box.
Rect PenFrame(const Pen& pen, const Rect& box) {
    if (pen.style != PenStyle::InsideFrame) return box;
    const int width = std::min(pen.width, kLargestArc);
    return {box.left + width / 2, box.top + width / 2, box.right - (width - 1) / 2,
            box.bottom - (width - 1) / 2};
}

/// The interior of a rectangle.
void FillStraight(const DrawingContext& context, const Rect& frame) {
    const int end = std::min(frame.bottom, context.surface.height);
    for (int y = std::max(frame.top, 0); y < end; ++y) {
        PaintClippedSpan(context.surface, y, frame.left, frame.right, context.brush.color);
    }
}

/// The interior of a shape with round corners. Rows of a corner that its arc does
/// not reach (it has no tip when it is much taller than wide) stay unpainted, as
/// they have no outline either.
void FillRound(const DrawingContext& context, const Rect& frame, int corner_width,
               int corner_height) {
    const auto fill = [&](int y, int inset) {
        PaintClippedSpan(context.surface, y, std::int64_t{frame.left} + inset,
                         std::int64_t{frame.right} - inset, context.brush.color);
    };
    int filled_row = corner_height / 2 - 1;
    for (QuarterArc arc(corner_width, corner_height);
         !arc.IsPastMiddle() && arc.Row() < corner_height; arc.Advance()) {
        if (arc.Row() == filled_row) continue;
        filled_row = arc.Row();
        fill(frame.bottom - corner_height + filled_row, arc.Inset());
        fill(frame.top + corner_height - 1 - filled_row, arc.Inset());
    }
    FillStraight(context, {frame.left, frame.top + corner_height / 2, frame.right,
                           frame.bottom - corner_height / 2});
}

/// The pixels of a round outline, a closed figure.
class RoundOutline {
public:
    /// False when there is no memory for it.
    [[nodiscard]] bool Trace(const Rect& frame, int corner_width, int corner_height) {
        points_ = platform::WorkArray<Point>(
            4 * (static_cast<std::size_t>(corner_width) + static_cast<std::size_t>(corner_height)));
        if (!points_) return false;
        // From the middle of the upper right corner's right side to its top.
        for (QuarterArc arc(corner_width, corner_height); arc.Inset() < (corner_width + 1) / 2;
             arc.Advance()) {
            points_[count_++] = {frame.right - 1 - arc.Inset(),
                                 frame.top + corner_height - 1 - arc.Row()};
        }
        for (std::size_t i = count_; i-- > 0;) {
            points_[count_++] = {frame.left + frame.right - 1 - points_[i].x, points_[i].y};
        }
        for (std::size_t i = count_; i-- > 0;) {
            points_[count_++] = {points_[i].x, frame.top + frame.bottom - 1 - points_[i].y};
        }
        return true;
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
    if (context.brush.paints) FillStraight(context, frame);
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
    RoundOutline outline;
    if (!outline.Trace(frame, width, height)) {
        context.failed = true;
        return;
    }
    if (context.brush.paints) FillRound(context, frame, width, height);
    StrokeWide(context, outline.Points(), Closing::Closed);
}

void EllipseWide(DrawingContext& context, const Rect& box) {
    const Rect ordered = Ordered(box);
    RoundRectWide(context, box, ordered.right - ordered.left, ordered.bottom - ordered.top);
}

}  // namespace raster
