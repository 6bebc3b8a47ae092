// The inside of a polygon, row by row.
#pragma once

#include <span>

#include "raster/drawing_context.h"

namespace raster {

/// Paints the pixels inside the closed polygon, by the rule `fill`. Returns 0 when
/// there was no memory for its edges; nothing is painted then.
[[nodiscard]] int FillPolygon(const Surface& surface, std::span<const Point> points,
                              PolygonFill fill, Color color);

}  // namespace raster
