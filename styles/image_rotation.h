// A picture turned by an eighth of a turn.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// Returns a new picture of the given size and the source's depth that shows the
/// source turned by 45 degrees about the centres of both, or null. What lies
/// outside the source is grey 128. The source stays the caller's.
[[nodiscard]] ImageHandle RotateImage45(ImageHandle image, int width, int height);

}  // namespace tess
