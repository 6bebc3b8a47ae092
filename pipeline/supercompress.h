// Supercompress: only what has changed since the frame before counts.
#pragma once

#include "pipeline/build_run.h"

namespace tess {

/// Compares a frame with the picture so far, `last`. Where they differ, `last` gets
/// the frame's pixel and `mask` 0; where they agree, `mask` gets 1. A place outside
/// `last` differs. Requires: `mask` is 1 bit of the frame's size, all zero.
void MarkUnchangedPixels(PackedDib* last, const PackedDib* frame, PackedDib* mask);

/// Gives each frame but the first a mask of its unchanged pixels. Returns false after
/// telling the user.
[[nodiscard]] bool SupercompressFrames(BuildRun& run);

/// Sets `image` to `index` wherever `mask` is set; if it has an entry `index` in its
/// table, that becomes `color`.
void MakeUnchangedTransparent(PackedDib* image, const PackedDib* mask, int index, ColorWord color);

}  // namespace tess
