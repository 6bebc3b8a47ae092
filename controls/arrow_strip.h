// Arrow strips: bitmap files of height 24 that hold the pictures of a picker's
// cells, 24 by 24 pixels each, side by side, at 24 or at 32 bits. At 32 bits they
// carry alpha, which is not multiplied into the colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "pipeline/image_buffers.h"

namespace tess {

inline constexpr int kArrowPitch = 24;  ///< pixels from one picture to the next
inline constexpr int kArrowInset = 2;   ///< a margin of each picture that is not shown
inline constexpr int kArrowSize = 20;   ///< pixels shown, both ways

/// A strip's pixels in its file. Owns nothing.
struct ArrowStrip {
    const std::uint8_t* Pixels;  ///< the bottom row first
    int Width, Height;
    int BitCount;  ///< 24 or 32
};

/// Finds the pixels in the bytes of a bitmap file. Returns false for a file of
/// another kind, or one that is cut off.
[[nodiscard]] bool OpenArrowStrip(std::span<const std::byte> file, ArrowStrip* strip);

/// The pixel at (x, y), y from the top, on a background:
/// channel x alpha / 255 + background x (255 - alpha) / 255, each term truncated.
/// The background alone outside the strip.
[[nodiscard]] ColorWord BlendedArrowPixel(const ArrowStrip& strip, int x, int y,
                                          ColorWord background);

/// What is shown of picture `index`, as rows from the top of blue, green, red, 0.
struct ArrowPicture {
    std::uint8_t Bytes[kArrowSize * kArrowSize * 4];
};
[[nodiscard]] ArrowPicture BlendArrow(const ArrowStrip& strip, int index, ColorWord background);

}  // namespace tess
