// A line with its two ends as one outline, since Cairo's strokes end the same on both
// sides and know neither triangles nor anchors.
#pragma once

#include <cairo.h>

#include "platform/vector_drawing.h"

namespace platform {

/// Appends the outline to the path, to be filled by winding. A line without a length has
/// no direction and lies as if it ran to the right.
void AppendLineOutline(cairo_t* context, const VectorPen& pen, VectorPoint from, VectorPoint to);

}  // namespace platform
