// What makes a tile join itself: stamping a sprite on a torus, rolling a picture
// by rows or columns, and the soft masks that serve as sprites.
//
// Image arguments are locked pictures unless they are handles. Results are new
// pictures, owned by the caller, or null when memory is short.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "raster/drawing_context.h"

namespace tess {

/// The non-negative remainder of `coordinate` by `size`. Requires: size > 0.
[[nodiscard]] constexpr int Wrap(int coordinate, int size) {
    if (coordinate >= size) return coordinate % size;
    if (coordinate < 0) {
        const int rest = static_cast<int>(-static_cast<std::int64_t>(coordinate) % size);
        return rest == 0 ? 0 : size - rest;
    }
    return coordinate;
}

/// Stamps `color` through `mask` (equal channels, 24 bits) with its top left at
/// (x, y) of any value, wrapping at all four edges. `opacity` 0 to 255.
/// Requires: the mask is another picture than the destination; so below.
void WrapStampMask(PackedDib* destination, const PackedDib* mask, int x, int y, ColorWord color,
                   int opacity);
/// The same with the colours and alpha of a 32-bit source.
void WrapBlendImage(PackedDib* destination, const PackedDib* source, int x, int y);

/// A 32-bit picture: the colours of `image`, alpha from the low byte of `mask`.
[[nodiscard]] ImageHandle MergeAlphaImage(ImageHandle image, ImageHandle mask);
/// A 24-bit picture of the rectangle's size in one colour.
[[nodiscard]] ImageHandle NewSolidImage(const raster::Rect& rectangle, ColorWord color);

/// Roll the picture by `distance` rows or columns, 0 to the full size.
[[nodiscard]] ImageHandle RollImageDown(ImageHandle image, int distance);
[[nodiscard]] ImageHandle RollImageUp(ImageHandle image, int distance);
[[nodiscard]] ImageHandle RollImageRight(ImageHandle image, int distance);
[[nodiscard]] ImageHandle RollImageLeft(ImageHandle image, int distance);

/// A square mask of concentric discs: from black at the rim to near `peak` at the
/// centre when `inverse`, else from white to near 255 - `peak`. Outside the
/// outermost disc it is 0. Below a diameter of 2 it is black.
[[nodiscard]] ImageHandle RadialMask(int diameter, int peak, bool inverse);

/// Draws one of `count` colours, unlike the last one where 16 draws can do it;
/// with one colour there is no draw. `last_picked` is -1 before the first.
/// Requires: count >= 1. Returns the index, which is also the new `last_picked`.
int PickFillColor(int count, int* last_picked);

}  // namespace tess
