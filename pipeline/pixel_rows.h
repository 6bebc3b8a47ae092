// Rows of pixels taken out of a picture and put back, whatever its depth. Rows
// are numbered from the top; buffers hold one picture's width of pixels.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

/// The indexes of a row, a byte each. Requires: 8, 4 or 1 bit.
void ReadIndexRow(const PackedDib* image, int y, std::uint8_t* indexes);

/// Stores a row of indexes, cut to the picture's bits. Requires: 8, 4 or 1 bit,
/// and a picture whose padding is zero, which it stays.
void WriteIndexRow(PackedDib* image, int y, const std::uint8_t* indexes);

/// True when all pixels of a 24-bit row are the same.
[[nodiscard]] bool IsOneColorRow(const std::uint8_t* row, int width);

/// The colours of a row: red, green, blue, a byte each. `palette` is the
/// picture's own, unused above 8 bits, where alpha is left out.
void ReadColorRow(const PackedDib* image, int y, const std::uint8_t* palette, std::uint8_t* colors);

}  // namespace tess
