// Lines with the context's pen: round ends and joins when it is wider than 1.
#pragma once

#include <span>

#include "raster/drawing_context.h"

namespace raster {

void MoveToEx(DrawingContext& context, int x, int y);
/// Draws from the current position, which then is (x, y). A line one pixel wide
/// leaves out its last pixel.
void LineTo(DrawingContext& context, int x, int y);
/// Draws through the points; the current position has no part in it.
void Polyline(DrawingContext& context, std::span<const Point> points);
/// Draws 1 + 3n points as n cubic curves, a start and two controls and an end for
/// each; other counts draw nothing.
void PolyBezier(DrawingContext& context, std::span<const Point> points);

}  // namespace raster
