// Pictures as .bmp files: a file header of 14 bytes before the picture's own block.
#pragma once

#include <string_view>

#include "host/animation.h"

namespace tess {

/// Writes the picture exactly as it is, whole or not at all.
[[nodiscard]] FileResult WriteBmpFile(ImageHandle image, std::string_view path);

}  // namespace tess
