// The plain versions of the nearest-colour search and of quantizing, step by step
// as they are defined. The fast ones are held to their bytes.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess::plain {

int NearestColor(int red, int green, int blue, const std::uint8_t* palette, int count);
int QuantizeFrames(int* count, std::uint8_t* palette, const FrameList* frames);

}  // namespace tess::plain
