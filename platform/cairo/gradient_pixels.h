// The pixels of gradients, one by one: Cairo's own know no path gradient, and no
// centre outside of an ellipse.
#pragma once

#include <cstdint>

#include "platform/vector_drawing.h"

namespace platform {

/// The mix of two opaque colours, `share` (0 to 1) of the second, rounded.
[[nodiscard]] Argb MixColors(Argb first, Argb second, double share);

/// How far (x, y) lies on the way from the centre, through it, to the edge of the ellipse
/// or rectangle in `box`: 0 in the centre, 1 on the edge and outside. For a centre outside
/// the way goes to the far edge.
[[nodiscard]] double ShareInEllipse(const VectorBox& box, VectorPoint center, int x, int y);
[[nodiscard]] double ShareInRectangle(const VectorBox& box, VectorPoint center, int x, int y);

/// How far (x, y) lies along a direction in the unit square that is stretched to `box`,
/// between the square's outermost corners; repeated outside.
/// Requires: (cosine, sine) is the direction.
[[nodiscard]] double ShareAlong(const VectorBox& box, double cosine, double sine, int x, int y);

}  // namespace platform
