// The Preview's files: a GIF89a animation and the page that shows it as its
// background.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "pipeline/image_buffers.h"

namespace tess {

/// Creates "preview.html" and "preview.gif" in the plug-in's per-user folder and
/// writes the GIF's head. `html_path` receives the page's path. Returns the open
/// stream, which the caller closes, or null.
[[nodiscard]] std::FILE* GifOpen(std::string* html_path, int width, int height,
                                 const std::uint8_t* palette, int depth);

/// Writes the blocks of one frame; `frame`'s delay must be in hundredths of a
/// second already. Returns 1 or 0.
[[nodiscard]] int GifAddFrame(std::FILE* stream, const FrameRecord* frame);

/// The byte that ends a GIF.
inline constexpr std::uint8_t kGifTrailer = 0x3B;

}  // namespace tess
