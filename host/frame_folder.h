// Animations as a folder: each frame exactly as the host was handed it, as
// "frame_00000.bmp" and on, and "animation.json", which tells what the pictures
// do not: size, depth, palette and comment of the whole, and for each frame its
// delay and transparent index.
#pragma once

#include <string_view>

#include "host/animation.h"

namespace tess {

/// Writes the folder, whole or not at all, and makes the folders above it. A folder of that
/// name, or the one that a link of that name leads to, is replaced if it holds nothing but
/// an animation of this form and is not the one that the program runs in.
[[nodiscard]] FileResult WriteFrameFolder(const Animation& animation, std::string_view path);

/// Finds out what writing the folder would fail for, as far as it shows before. Makes
/// nothing.
[[nodiscard]] FileResult TryFrameFolder(std::string_view path);

}  // namespace tess
