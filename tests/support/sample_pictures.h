// Pictures of several kinds for tests and benchmarks, the same for a seed on
// every machine.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

enum class PictureKind {
    Noise,       ///< every pixel any colour
    Smooth,      ///< slow waves in all channels
    Flat,        ///< one colour
    FewColors,   ///< up to 40 colours, strewn
    Runs,        ///< runs of random colours
    NarrowRange  ///< noise within 16 steps of one colour
};
inline constexpr int kPictureKinds = 6;

/// Returns a picture of 24 bits, or of 32 with random alpha. The caller owns it.
[[nodiscard]] ImageHandle MakePicture(PictureKind kind, int width, int height, std::uint32_t seed,
                                      int depth = 24);
/// Returns a picture of random indexes with a random table, of 1, 4 or 8 bits.
[[nodiscard]] ImageHandle MakeIndexedPicture(int width, int height, int depth, std::uint32_t seed);
/// Fills 256 entries: scattered or crowded colours, some of them twice.
void MakePalette(std::uint8_t* palette, std::uint32_t seed);

}  // namespace tess
