// The plain versions of remapping, pixel by pixel as they are defined, with
// working memory for whole pictures. The fast ones are held to their bytes.
// They read the same settings (`FastRemap`, `DitherBrightness`, `DitherContrast`).
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess::plain {

ImageHandle RemapPlain(ImageHandle source, const std::uint8_t* palette, int depth, int colors);
ImageHandle RemapDither(ImageHandle source, const std::uint8_t* palette, int depth, int colors);
ImageHandle ForceColorIndex(ImageHandle image, ImageHandle source, ColorWord color, int index);

}  // namespace tess::plain
