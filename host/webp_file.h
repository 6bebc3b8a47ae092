// Animations as WebP files, without loss. Only in the native build.
#pragma once

#include <string_view>

#include "host/animation.h"

namespace tess {

/// Writes an endlessly looping animation, whole or not at all. A frame that looks
/// like the one before it only prolongs that one.
[[nodiscard]] FileResult WriteWebp(const Animation& animation, std::string_view path);

}  // namespace tess
