// Palettes: the fixed ones, sorting, and the search for the nearest colour.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

/// Clears `palette` (768 bytes, may be null), writes the fixed palette `index` (0
/// to 8 as in the dialog's list, 9 for 8 colours, any other as 6), stores its bits
/// per pixel in `depth` (may be null). Returns the number of colours.
int BuildFixedPalette(std::uint8_t* palette, int* depth, int index);

/// Returns the first entry equal to the colour, else the first of the entries
/// with the least 3 dr^2 + 4 dg^2 + 2 db^2. 0 when `count` is below 1.
[[nodiscard]] int NearestColor(int red, int green, int blue, const std::uint8_t* palette,
                               int count);

/// red x 77 / 255 + green x 150 / 255 + blue x 28 / 255, each term truncated, the
/// sum cut to 8 bits.
[[nodiscard]] constexpr int Luminance(int red, int green, int blue) {
    return (red * 77 / 255 + green * 150 / 255 + blue * 28 / 255) & 255;
}

/// Sorts the first `count` entries by Luminance, dark first; equals keep their
/// order.
void SortPaletteByLuminance(std::uint8_t* palette, int count);

}  // namespace tess
