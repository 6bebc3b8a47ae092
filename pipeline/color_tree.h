// One palette for all frames of an animation. The contract of QuantizeFrames;
// the tree itself is told in color_tree.cpp.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

/// In: `count` the wanted number of colours (0 and anything above 256 mean 256).
/// Out: `palette` (768 bytes, cleared first) and in `count` the colours it holds.
/// `frames` are 24-bit pictures. Returns 1, or 0 when a block could not be had or
/// locked.
[[nodiscard]] int QuantizeFrames(int* count, std::uint8_t* palette, const FrameList* frames);

}  // namespace tess
