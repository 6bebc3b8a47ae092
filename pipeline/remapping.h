// From 24-bit frames to indexed pictures on the animation's one palette. All
// three make a new picture, owned by the caller, and leave their source alone;
// null when memory is short.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

/// Configuration values without a control (their keys bear the same names).
extern std::uint32_t DitherBrightness;  ///< shifts the tone curve of the two-colour dither; 20
extern std::uint32_t DitherContrast;    ///< steepens it; 20
extern std::uint32_t FastRemap;  ///< nonzero: 5 bits a channel for colours without a match; 0

/// Each pixel to its nearest colour of `palette`'s first `colors` entries, in
/// NewPackedDib's layout for `depth`.
[[nodiscard]] ImageHandle RemapPlain(ImageHandle source, const std::uint8_t* palette, int depth,
                                     int colors);
/// The same with error diffusion. Also null for a 1-bit source.
[[nodiscard]] ImageHandle RemapDither(ImageHandle source, const std::uint8_t* palette, int depth,
                                      int colors);
/// A copy of the indexed `image` with `index` wherever the low 24 bits of the
/// 24-bit `source`, of the same size, equal those of `color`.
[[nodiscard]] ImageHandle ForceColorIndex(ImageHandle image, ImageHandle source, ColorWord color,
                                          int index);

}  // namespace tess
