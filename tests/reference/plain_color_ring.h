// A frame of Carpet or Atmosphere, pixel by pixel.
#pragma once

#include <cstddef>
#include <vector>

#include "pipeline/image_buffers.h"

namespace tess::test {

/// The pixels of frame `f` of `frames`, for heights and a ring of 256 colours.
inline std::vector<ColorWord> PlainColorRing(const std::vector<int>& heights,
                                             const std::vector<ColorWord>& ring, int f,
                                             int frames) {
    const double phase = static_cast<double>(f) / frames;
    const int shift = static_cast<int>(phase * 256.0);
    std::vector<ColorWord> pixels;
    for (const int height : heights)
        pixels.push_back(ring[static_cast<std::size_t>((height + shift) % 256)]);
    return pixels;
}

}  // namespace tess::test
