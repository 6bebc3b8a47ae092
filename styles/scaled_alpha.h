// Fading a sprite.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// A copy of a 32-bit picture whose alphas are multiplied by level / 255, cut, and kept
/// within 0 to 255. Null for a picture of any other depth or without memory. The caller
/// owns it.
[[nodiscard]] ImageHandle ScaleImageAlpha(ImageHandle image, int level);

}  // namespace tess
