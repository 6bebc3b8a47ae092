// Pictures and animations as PNG files (W3C, "Portable Network Graphics (PNG)
// Specification, Third Edition", whose animation chunks are acTL, fcTL and fdAT).
// Frames of one colour table are written with it, others in true colour; either
// way the pixels are exactly those that a viewer of the animation is to see.
// Only in the native build.
#pragma once

#include <cstdio>
#include <string_view>

#include "host/animation.h"

namespace tess {

/// Writes an endlessly looping animation, whole or not at all.
[[nodiscard]] FileResult WriteAnimatedPng(const Animation& animation, std::string_view path);

/// Writes one picture of 1, 4, 8 or 24 bits to a stream, from first to last.
[[nodiscard]] FileResult WritePngStream(ImageHandle image, std::FILE* stream);
/// Writes it to a file, whole or not at all.
[[nodiscard]] FileResult WritePng(ImageHandle image, std::string_view path);

}  // namespace tess
