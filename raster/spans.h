// Runs of pixels in a row of a surface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "raster/drawing_context.h"

namespace raster {

/// Paints the columns from `first` up to `end` of row `y`, counted from the top.
/// Requires: all within the surface, first <= end.
inline void PaintSpan(const Surface& surface, int y, int first, int end, Color color) {
    const auto red = static_cast<std::uint8_t>(color);
    const auto green = static_cast<std::uint8_t>(color >> 8);
    const auto blue = static_cast<std::uint8_t>(color >> 16);
    std::uint8_t* pixel = surface.bits +
                          static_cast<std::ptrdiff_t>(surface.height - 1 - y) * surface.stride +
                          static_cast<std::ptrdiff_t>(first) * 3;
    const auto count = static_cast<std::size_t>(end - first);
    if (red == green && green == blue) {
        std::memset(pixel, red, count * 3);
        return;
    }
    const std::uint8_t four[12] = {blue, green, red, blue, green, red,
                                   blue, green, red, blue, green, red};
    std::size_t left = count;
    for (; left >= 4; left -= 4, pixel += sizeof four)
        std::memcpy(pixel, four, sizeof four);
    std::memcpy(pixel, four, left * 3);
}

/// The same for a span that may lie partly or wholly outside the surface, or run
/// backwards (then it paints nothing).
inline void PaintClippedSpan(const Surface& surface, std::int64_t y, std::int64_t first,
                             std::int64_t end, Color color) {
    if (y < 0 || y >= surface.height) return;
    if (first < 0) first = 0;
    if (end > surface.width) end = surface.width;
    if (first >= end) return;
    PaintSpan(surface, static_cast<int>(y), static_cast<int>(first), static_cast<int>(end), color);
}

/// Paints rows `top` up to `bottom` of the columns `left` up to `right`, as far as
/// they are on the surface.
inline void PaintClippedBox(const Surface& surface, std::int64_t left, std::int64_t top,
                            std::int64_t right, std::int64_t bottom, Color color) {
    if (top < 0) top = 0;
    if (bottom > surface.height) bottom = surface.height;
    for (std::int64_t y = top; y < bottom; ++y)
        PaintClippedSpan(surface, y, left, right, color);
}

/// Requires: the pixel is on the surface.
inline void PaintPixel(const Surface& surface, int x, int y, Color color) {
    PaintSpan(surface, y, x, x + 1, color);
}

}  // namespace raster
