// Resampling of pictures: two separable passes, Lanczos with three lobes for
// shrinking (K. Turkowski, "Filters for Common Resampling Tasks", 1990), the
// cubic of D. Mitchell and A. Netravali ("Reconstruction Filters in Computer
// Graphics", 1988) with B = C = 1/3 for enlarging.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// Returns a new picture with each side trunc(side x percent / 100.0 + 0.5), or
/// null. The source stays the caller's.
[[nodiscard]] ImageHandle ScaleImagePercent(ImageHandle image, int width_percent,
                                            int height_percent);

/// Returns a new picture of the given size, of the source's depth and colour
/// table, or null. 8-bit pictures are filtered on their indexes; pixels of 1- and
/// 4-bit pictures stay zero.
[[nodiscard]] ImageHandle ScaleImage(ImageHandle image, int width, int height, double blur);

}  // namespace tess
