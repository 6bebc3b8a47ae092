// From Cairo's pixels to those of a picture.
#pragma once

#include <cstdint>

namespace platform {

/// Copies pixels (0xFFRRGGBB, top row first, rows without gaps) as 24-bit rows: blue,
/// green, red, bottom row first, each filled up to 4 bytes.
void CopyBottomUp(const std::uint32_t* pixels, int width, int height, std::uint8_t* rows);

}  // namespace platform
