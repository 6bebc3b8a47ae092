// The colour ring of Carpet and Atmosphere: a field of heights, each looked up in a
// ring of 256 colours that turns once in a loop.
#pragma once

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

/// Where a ring's colours and heights come from, and how large its picture is.
struct ColorRing {
    int FountainControl;
    ImageHandle HeightField;  ///< 24 bits; the low byte of a pixel is its height
    int Width, Height;        ///< at most the field's
};

/// Renders the field with the ring turned by `phase`, 0 to below 1. Returns a new
/// 24-bit picture, or null.
[[nodiscard]] ImageHandle RenderColorRing(platform::WindowHandle dialog, const ColorRing& ring,
                                          double phase);

}  // namespace tess
