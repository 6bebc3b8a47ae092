// Stamping, blending, merging, rolling and the radial mask in their plain
// form, one pixel at a time, and the mask disc by disc: what toolkit/ must equal byte for
// byte.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess::reference {

void PlainWrapStampMask(PackedDib* destination, const PackedDib* mask, int x, int y,
                        ColorWord color, int opacity);
void PlainWrapBlendImage(PackedDib* destination, const PackedDib* source, int x, int y);
[[nodiscard]] ImageHandle PlainMergeAlphaImage(ImageHandle image, ImageHandle mask);
/// The new pixel (x, y) is the old one at (x + right, y + down), wrapped.
[[nodiscard]] ImageHandle PlainRollImage(ImageHandle image, int right, int down);
[[nodiscard]] ImageHandle PlainRadialMask(int diameter, int peak, bool inverse);

}  // namespace tess::reference
