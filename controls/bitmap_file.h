// Bitmap files of the program's own pictures, at 24 or at 32 bits. At 32 bits they carry
// alpha, which is not multiplied into the colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "pipeline/image_buffers.h"

namespace tess {

/// A file's pixels. Owns nothing.
struct BitmapFile {
    const std::uint8_t* Pixels;  ///< the bottom row first
    int Width, Height;
    int BitCount;  ///< 24 or 32
};

/// Finds the pixels in the bytes of a bitmap file. Returns false for a file of
/// another kind, or one that is cut off.
[[nodiscard]] bool OpenBitmapFile(std::span<const std::byte> file, BitmapFile* bitmap);

/// The pixel at (x, y), y from the top, on a background:
/// channel x alpha / 255 + background x (255 - alpha) / 255, each term truncated.
/// The background alone outside the picture.
[[nodiscard]] ColorWord BlendedPixel(const BitmapFile& bitmap, int x, int y, ColorWord background);

}  // namespace tess
