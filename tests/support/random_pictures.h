// Pictures for tests: made from a seed, and compared whole.
#pragma once

#include <cstdint>
#include <string>

#include "pipeline/image_buffers.h"

namespace tess::test {

/// A picture of `bits` bits (1, 4, 8, 24 or 32) whose pixels and colour table are
/// drawn from `seed`. Owned by the caller.
[[nodiscard]] ImageHandle RandomPicture(int width, int height, int bits, std::uint32_t seed);

/// A picture with one channel value in every pixel byte.
[[nodiscard]] ImageHandle FlatPicture(int width, int height, int bits, int level);

/// Says how two pictures differ in header, colour table or pixel rows with their
/// padding; empty when they are equal. Null handles differ from pictures.
[[nodiscard]] std::string Difference(ImageHandle one, ImageHandle other);

}  // namespace tess::test
