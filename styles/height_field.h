// Fields of heights: 24-bit pictures whose low byte (red) is a height.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// Stretches the heights to start from 0 and reach about 255, by a whole number of
/// hundredths, and clears the other bytes. A field without any height stays as it
/// is. Returns false when the picture could not be locked.
[[nodiscard]] bool NormalizeHeights(ImageHandle field);

/// Sets the picture among its mirror images and halves that. Returns a new picture
/// of the same size that joins itself; where the scaler fails, one of twice the
/// size, of which the top left counts; or null. Requires: 24 bits.
[[nodiscard]] ImageHandle MirrorTile(ImageHandle tile);

}  // namespace tess
