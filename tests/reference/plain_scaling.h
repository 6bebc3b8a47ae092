// The scaler in its plain form, one pixel at a time through GetDibPixel and
// SetDibPixel: what pipeline/image_scaling.cpp must equal byte for byte.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess::reference {

[[nodiscard]] ImageHandle PlainScaleImagePercent(ImageHandle image, int width_percent,
                                                 int height_percent);
[[nodiscard]] ImageHandle PlainScaleImage(ImageHandle image, int width, int height, double blur);

}  // namespace tess::reference
