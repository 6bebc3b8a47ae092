// Lines one pixel wide.
#pragma once

#include <span>

#include "raster/drawing_context.h"

namespace raster {

/// Paints from `from` up to, not including, the pixel at `to`.
void ThinLine(const Surface& surface, const Point& from, const Point& to, Color color);
/// Thin lines from each point to the next.
void ThinLines(const Surface& surface, std::span<const Point> points, Color color);

}  // namespace raster
