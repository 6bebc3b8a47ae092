// Pens wider than one pixel: round ends and round joins. The outlines of shapes
// with such pens are here too, with the interiors that go with them.
#pragma once

#include <span>

#include "raster/drawing_context.h"

namespace raster {

enum class Closing { Open, Closed };
/// Exchanged: the points have x and y exchanged, and so has what is covered.
enum class Axes { AsTheyAre, Exchanged };

constexpr bool IsWide(const Pen& pen) {
    return pen.style != PenStyle::None && pen.width > 1;
}

/// Strokes an open polyline (round caps and joins) or a closed figure with the
/// context's pen. Requires: IsWide(context.pen). Fewer than two points draw
/// nothing. Polygon fills its interior first, then strokes its points Closed;
/// LineTo, Polyline and PolyBezier (its flattened points) stroke Open. Sets
/// `context.failed` when many points are given and the memory that keeps their
/// overlaps from being painted again and again cannot be had.
void StrokeWide(DrawingContext& context, std::span<const Point> points, Closing closing,
                Axes axes = Axes::AsTheyAre);

/// The shapes of raster/shapes.h for a wide pen, interior and outline. Requires:
/// IsWide(context.pen). The box may be crossed or empty.
void RectangleWide(DrawingContext& context, const Rect& box);
void RoundRectWide(DrawingContext& context, const Rect& box, int corner_width, int corner_height);
/// An ellipse is a RoundRectWide whose corners fill the box.
void EllipseWide(DrawingContext& context, const Rect& box);

}  // namespace raster
