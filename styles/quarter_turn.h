// Pictures turned by a right angle.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

// Return a new picture with width and height exchanged, of the source's depth and
// colour table, or null. The source stays the caller's.
[[nodiscard]] ImageHandle RotateImageClockwise(ImageHandle image);
[[nodiscard]] ImageHandle RotateImageCounterClockwise(ImageHandle image);

}  // namespace tess
