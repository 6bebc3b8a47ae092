// A box with round corners, filled, and its outline one pixel wide. An ellipse is
// a box whose corners are as large as itself.
#pragma once

#include "raster/drawing_context.h"

namespace raster {

/// Of the ellipse whose quarters are the corners.
struct CornerAxes {
    int width, height;
};

/// Both: Requires: the box is ordered and not empty; the axes are 3 or more and
/// no longer than the box's sides.
void FillRoundedBox(const Surface& surface, const Rect& box, const CornerAxes& corners,
                    Color color);
void OutlineRoundedBox(const Surface& surface, const Rect& box, const CornerAxes& corners,
                       Color color);

}  // namespace raster
