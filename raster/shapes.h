// Filled and outlined shapes, with the context's brush inside and its pen round
// them. Boxes may be empty, crossed (they paint as their ordered form), or lie
// outside the surface. Without a pen a shape fills its box up to but not
// including right and bottom.
#pragma once

#include <span>

#include "raster/drawing_context.h"

namespace raster {

/// Fills with `brush`; the context's pen and brush have no part in it. A crossed
/// side runs from its first coordinate, which it then includes, back to the other,
/// which it leaves out, as it does in GDI.
void FillRect(DrawingContext& context, const Rect& box, const Brush& brush);
void Rectangle(DrawingContext& context, int left, int top, int right, int bottom);
void Ellipse(DrawingContext& context, int left, int top, int right, int bottom);
/// `corner_width` and `corner_height` are the axes of the ellipse at the corners.
void RoundRect(DrawingContext& context, int left, int top, int right, int bottom, int corner_width,
               int corner_height);
/// Closes the outline and fills it by the context's `polygon_fill`.
void Polygon(DrawingContext& context, std::span<const Point> points);

}  // namespace raster
